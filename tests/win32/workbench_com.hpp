// The workbench as the IDE's automation objects, for driving Vorrel.dll end to
// end: every ide:: object of the workbench that the add-in reaches is a
// comdouble::Object with the IDE's member names and numbers, whose members
// call the workbench object, and whose failures reach the caller as
// the IDE's number and words. The events objects of VBControlsEvents and
// CommandBarEvents are connection points: what the workbench raises is fired
// at the sinks advised there, for as long as the events object lives.
#pragma once

#include <memory>

#include "com_double.hpp"
#include "workbench/ide.hpp"

namespace workbench_com {

// The VBE object of `ide`, to pass to OnConnection as the Application.
comdouble::ComPtr<comdouble::Object> Vbe(const std::shared_ptr<workbench::Ide>& ide);
// A control of the workbench as the IDE's VBControl.
comdouble::ComPtr<comdouble::Object> Control(const std::shared_ptr<ide::VBControl>& control);

}  // namespace workbench_com
