#!/usr/bin/env bash
# Drives `tessaly interactive` in a tmux pane as a user would: drops a text
# box on a copy of the sample, fills the add-in's dialog, undoes and redoes
# that with Ctrl+Z and Ctrl+Y, is asked before
# quitting with changes, saves, and checks the saved form holds the values.
# Usage: workbench_tmux_test.sh TESSALY SOURCE_DIR. Exit 77: skipped.
set -euo pipefail
tessaly=$1
source_dir=$2
if ! command -v tmux >/dev/null; then
  echo "SKIPPED: tmux is not installed (scripts/install-deps installs it)"
  exit 77
fi
work=$(mktemp -d)
sock="tessaly-test-$$"
trap 'tmux -L "$sock" kill-server 2>/dev/null || true; rm -rf "$work"' EXIT
cp -r "$source_dir/examples/sample" "$work/p"
tmux -L "$sock" new-session -d -x 120 -y 40 \
  "XDG_CONFIG_HOME='$work/cfg' '$tessaly' interactive '$work/p/Sample.vbp' \
   --settings '$work/settings.json'; echo EXITED \$?; sleep 10"

keys() { tmux -L "$sock" send-keys "$@"; }
# Waits up to 10 s for the text on the screen.
wait_for() {
  for _ in $(seq 100); do
    tmux -L "$sock" capture-pane -p | grep -qF -- "$1" && return 0
    sleep 0.1
  done
  echo "never shown: $1"
  tmux -L "$sock" capture-pane -p
  exit 1
}

wait_for "opened Sample"
keys 'drop TextBox' Enter
wait_for "New TextBox Control"
keys 'Name' Tab 'Hello' Enter
wait_for "txtName  TextBox"
wait_for "[modified]"
keys C-z
wait_for "undid: drop TextBox"
keys C-y
wait_for "redid: drop TextBox"
keys 'quit' Enter
wait_for "changes that are not saved"
keys Enter
wait_for "tessaly>"
keys 'save' Enter
wait_for "saved"
grep -q 'Begin VB.TextBox txtName' "$work/p/frmMain.frm"
grep -Eq 'Text +=   "Hello"' "$work/p/frmMain.frm"
keys C-d
wait_for "EXITED 0"
echo "passed"
