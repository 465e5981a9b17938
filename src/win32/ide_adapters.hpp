// The IDE's object model over IDispatch: one adapter per interface of
// ide/object_model.hpp, each calling the IDE object by name (LateBound), as
// the members' contracts say.
//
// Adapt<I>(object) is the adapter of interface I over an IDE object, null for
// Nothing; the adapters of a group live in ide_adapters_<group>.cpp (menu,
// controls, code, events). Every object an adapter returns is an adapter too.
#pragma once

#include "win32/system.hpp"

#include <oaidl.h>
#include <wrl/client.h>

#include <memory>

#include "ide/object_model.hpp"
#include "win32/variant.hpp"

namespace win32 {

template <class Interface>
std::shared_ptr<Interface> Adapt(Microsoft::WRL::ComPtr<IDispatch> object);

// ide_adapters_events.cpp
template <>
std::shared_ptr<ide::Object> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::VBE> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::Events> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::CommandBarEvents> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::VBControlsEvents> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
// ide_adapters_menu.cpp
template <>
std::shared_ptr<ide::CommandBars> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::CommandBar> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::CommandBarControls> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::CommandBarControl> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
// ide_adapters_controls.cpp; the font's object is its IFontDisp.
template <>
std::shared_ptr<ide::VBControl> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::VBControls> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::VBForm> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::Properties> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::Property> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::FontObject> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
// ide_adapters_code.cpp
template <>
std::shared_ptr<ide::VBComponent> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::CodeModule> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::Members> Adapt(Microsoft::WRL::ComPtr<IDispatch>);
template <>
std::shared_ptr<ide::Member> Adapt(Microsoft::WRL::ComPtr<IDispatch>);

// The adapter of the object a call returned; null for Nothing.
template <class Interface>
std::shared_ptr<Interface> AdaptResult(const Variant& result) {
  return Adapt<Interface>(result.Dispatch());
}

// For the definitions: an adapter of type A, or null for Nothing.
template <class A>
std::shared_ptr<A> MakeAdapter(Microsoft::WRL::ComPtr<IDispatch> object) {
  return object ? std::make_shared<A>(std::move(object)) : nullptr;
}

// The IDE's main window (VBE.MainWindow.hWnd), to own message boxes; null
// when the IDE does not say. Never fails.
HWND MainWindowOf(IDispatch* vbe) noexcept;

}  // namespace win32
