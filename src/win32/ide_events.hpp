// The two event sources of the IDE that the add-in listens to: the
// identifiers of their outgoing interfaces and the numbers of their events.
//
// A sink is advised on the source's connection point and called through
// IDispatch::Invoke with these numbers; arguments arrive last first.
#pragma once

#include <oaidl.h>

namespace win32 {

// {0002E122-0000-0000-C000-000000000046}: Events.VBControlsEvents(project,
// form). ItemAdded(VBControl), ItemRemoved(VBControl), ItemRenamed(VBControl,
// BSTR OldName, long OldIndex).
inline constexpr IID kIID_VBControlsEvents = {
    0x0002E122, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
enum VBControlsEventId : DISPID { kItemAdded = 1, kItemRemoved = 2, kItemRenamed = 3 };

// {0002E198-0000-0000-C000-000000000046}: Events.CommandBarEvents(control).
// Click(IDispatch CommandBarControl, VARIANT_BOOL* handled,
// VARIANT_BOOL* CancelDefault).
inline constexpr IID kIID_CommandBarEvents = {
    0x0002E198, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
enum CommandBarEventId : DISPID { kClick = 1 };

}  // namespace win32
