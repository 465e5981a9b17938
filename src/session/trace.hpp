// The session's record of everything the add-in did: forms shown and closed,
// focus, message boxes, the font service, settings read and written, property
// and font writes with their outcomes, code edits, menu entries, control
// events and failures that reached the IDE; and what the session adds of its
// own (inspections, marks, the script's store lines).
//
// Each event is one JSON object; the trace writes it as a JSON Lines record
// and renders it as a readable transcript line. Every record carries "seq"
// (from 1) and "line" (the script line being run).
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "forms/observer.hpp"
#include "workbench/code_module.hpp"
#include "workbench/ide_observer.hpp"

namespace session {

using Json = nlohmann::ordered_json;

// A value with its kind: {"value": ..., "kind": "text"}.
void PutValue(Json& event, const vb::Value& value);

class Trace : public forms::Observer, public workbench::IdeObserver {
 public:
  // Either stream may be null.
  Trace(std::ostream* jsonl, std::ostream* transcript);

  void SetLine(int line) { line_ = line; }
  // Records one event (adds seq and line) and writes it out.
  void Emit(Json event);
  // Every event so far, for tests.
  const std::vector<Json>& Events() const { return events_; }
  // Writes a free line to the transcript only.
  void Say(const std::string& text);
  // The system's reason (an errno value) the trace or the transcript first
  // failed to take a write, 0 while every write went through. The stream
  // keeps its failed state, so whoever closes it sees the failure; this keeps
  // the reason, which later calls may overwrite.
  int TraceError() const { return trace_error_; }
  int TranscriptError() const { return transcript_error_; }

  // forms::Observer
  void FormShown(const forms::Form&) override;
  void FormClosed(const forms::Form&) override;
  void FocusChanged(const forms::Form&, const forms::Control&) override;
  void MessageBoxShown(const forms::MessageBox&, std::int32_t answer) override;
  void FontServiceClosed(const forms::FontChoice& given, const forms::FontChoice& result,
                         bool ok) override;
  void SettingRead(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                   const vb::Text& text, bool stored) override;
  void SettingWritten(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                      const vb::Text& text) override;

  // workbench::IdeObserver
  void PropertyWritten(const workbench::Control& control, const vb::Text& property,
                       const vb::Value& value, workbench::WriteSource source,
                       const std::optional<vb::Failure>& outcome) override;
  void FontWritten(const workbench::Control& control, ide::FontDispId id, const vb::Value& value,
                   const std::optional<vb::Failure>& outcome) override;
  void ControlAdded(const workbench::Control& control) override;
  void ControlRemoved(const workbench::Control& control) override;
  void ControlRenamed(const workbench::Control& control, const vb::Text& old_name,
                      std::int32_t old_index) override;
  void MenuEntryAdded(const vb::Text& bar, const vb::Text& caption) override;
  void MenuEntryCaptionSet(const vb::Text& bar, const vb::Text& old_caption,
                           const vb::Text& caption) override;
  void MenuEntryRemoved(const vb::Text& bar, const vb::Text& caption) override;
  void MenuEntryClicked(const vb::Text& bar, const vb::Text& caption) override;

  // A code module's edit listener.
  void CodeEdited(const workbench::CodeModule& module, const workbench::CodeEdit& edit);

 private:
  static std::string Render(const Json& event);
  // Keeps errno in `error` when `stream` has just failed for the first time.
  static void NoteFailure(const std::ostream* stream, int& error);
  std::ostream* jsonl_;
  std::ostream* transcript_;
  int line_ = 0;
  long seq_ = 0;
  int trace_error_ = 0;
  int transcript_error_ = 0;
  std::vector<Json> events_;
};

}  // namespace session
