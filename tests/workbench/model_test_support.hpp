// Small real doubles for the model tests: an observer and a controls-events
// sink that record what they hear as one line of text each, so a test states
// a whole sequence in one assertion.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "vb/convert.hpp"
#include "workbench/control.hpp"
#include "workbench/form_component.hpp"
#include "workbench/ide_observer.hpp"
#include "workbench/member_scan.hpp"
#include "workbench/project.hpp"

namespace workbench::testing {

inline std::string U8(const vb::Text& text) { return vb::ToUtf8(text); }
inline vb::Value I(int n) { return vb::Value(static_cast<vb::Integer>(n)); }
inline vb::Value L(int n) { return vb::Value(static_cast<vb::Long>(n)); }
inline const vb::Value kTrue(vb::Boolean::True);
inline const vb::Value kFalse(vb::Boolean::False);

inline std::string Describe(const vb::Value& value) {
  return std::string(vb::KindName(value.GetKind())) + ":" + U8(value.ToText());
}

// "Sub Foo 3-5": kind, name, declaration line and closing line ("?" when the
// module ends first); "+6-8" for each further Property procedure.
inline std::string Describe(const ScannedMember& m) {
  std::string out =
      std::string(MemberKindName(m.kind)) + " " + U8(m.name) + " " + std::to_string(m.line);
  if (m.end_line) {
    out += "-" + std::to_string(*m.end_line);
  } else if (IsProcedure(m.kind) || m.kind == MemberKind::Type || m.kind == MemberKind::Enum) {
    out += "-?";
  }
  for (const CodeExtent& part : m.more_parts) {
    out += " +" + std::to_string(part.line) + "-" +
           (part.end_line ? std::to_string(*part.end_line) : "?");
  }
  return out;
}

inline std::vector<std::string> Describe(const std::vector<ScannedMember>& members) {
  std::vector<std::string> out;
  for (const ScannedMember& m : members) out.push_back(Describe(m));
  return out;
}

// The failure number of `call`, or 0 when it succeeds.
template <typename Call>
std::int32_t FailureOf(Call&& call) {
  try {
    call();
  } catch (const vb::Failure& failure) {
    return failure.Number();
  }
  return 0;
}

// Every write and control event as a line: "write Text1.Caption text:Hi ok",
// "added Text1"...
class RecordingObserver : public IdeObserver {
 public:
  std::vector<std::string> log;

  void PropertyWritten(const Control& control, const vb::Text& property, const vb::Value& value,
                       WriteSource source, const std::optional<vb::Failure>& outcome) override {
    log.push_back(std::string(source == WriteSource::Sheet ? "sheet " : "write ") +
                  U8(control.DisplayName()) + "." + U8(property) + " " + Describe(value) + " " +
                  Outcome(outcome));
  }
  void FontWritten(const Control& control, ide::FontDispId id, const vb::Value& value,
                   const std::optional<vb::Failure>& outcome) override {
    log.push_back("font " + U8(control.DisplayName()) + "." + ide::FontDispIdName(id) + " " +
                  Describe(value) + " " + Outcome(outcome));
  }
  void ControlAdded(const Control& control) override {
    log.push_back("added " + U8(control.DisplayName()));
  }
  void ControlRemoved(const Control& control) override {
    log.push_back("removed " + U8(control.DisplayName()));
  }
  void ControlRenamed(const Control& control, const vb::Text& old_name,
                      std::int32_t old_index) override {
    log.push_back("renamed " + U8(old_name) + "(" + std::to_string(old_index) + ") -> " +
                  U8(control.DisplayName()));
  }

 private:
  static std::string Outcome(const std::optional<vb::Failure>& outcome) {
    return outcome ? "failed " + std::to_string(outcome->Number()) : "ok";
  }
};

// A sink that logs each event with the control's form and name as it reads
// them through the object model, into a log it may share with others.
class RecordingSink : public ide::VBControlsEventsSink {
 public:
  RecordingSink(std::string tag, std::vector<std::string>& log) : tag_(std::move(tag)), log_(log) {}

  // Called after each event is logged, to act as a sink may.
  std::function<void()> then = [] {};

  void ItemAdded(const std::shared_ptr<ide::VBControl>& control) override {
    log_.push_back(tag_ + " ItemAdded " + Path(control));
    then();
  }
  void ItemRemoved(const std::shared_ptr<ide::VBControl>& control) override {
    log_.push_back(tag_ + " ItemRemoved " + Path(control));
    then();
  }
  void ItemRenamed(const std::shared_ptr<ide::VBControl>& control, const vb::Text& old_name,
                   std::int32_t old_index) override {
    log_.push_back(tag_ + " ItemRenamed " + Path(control) + " from " + U8(old_name) + "(" +
                   std::to_string(old_index) + ")");
    then();
  }

  // "Form1.Text1" read through Collection/Parent/Parent and Properties.
  static std::string Path(const std::shared_ptr<ide::VBControl>& control) {
    const auto form = control->Collection()->Parent()->Parent();
    return U8(form->Name()) + "." + U8(control->Properties()->Item(u"Name")->Value().AsText());
  }

 private:
  std::string tag_;
  std::vector<std::string>& log_;
};

// A project with one empty form "Form1", observed.
struct ModelFixture {
  std::shared_ptr<Project> project = Project::Create(u"Project1");
  std::shared_ptr<FormComponent> form = project->AddForm(u"Form1");
  RecordingObserver observer;

  ModelFixture() { project->SetObserver(&observer); }

  std::shared_ptr<ide::Property> Prop(const std::shared_ptr<Control>& control,
                                      const vb::Text& name) {
    return control->Properties()->Item(name);
  }
};

}  // namespace workbench::testing
