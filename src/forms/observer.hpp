// What the forms runtime reports as it works, for traces and transcripts.
// Every member has an empty default: an observer overrides what it records.
#pragma once

#include <cstdint>

#include "forms/frontend.hpp"
#include "vb/text.hpp"

namespace forms {

class Form;
class Control;

class Observer {
 public:
  virtual ~Observer() = default;
  virtual void FormShown(const Form&) {}
  virtual void FormClosed(const Form&) {}
  virtual void FocusChanged(const Form&, const Control&) {}
  virtual void MessageBoxShown(const MessageBox&, std::int32_t /*answer*/) {}
  virtual void FontServiceClosed(const FontChoice& /*given*/, const FontChoice& /*result*/,
                                 bool /*ok*/) {}
  virtual void SettingRead(const vb::Text& /*app*/, const vb::Text& /*section*/,
                           const vb::Text& /*key*/, const vb::Text& /*text*/, bool /*stored*/) {}
  virtual void SettingWritten(const vb::Text& /*app*/, const vb::Text& /*section*/,
                              const vb::Text& /*key*/, const vb::Text& /*text*/) {}
};

}  // namespace forms
