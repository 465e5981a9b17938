// The IDE object, its events object and the two event sources the add-in
// listens to.
#include "win32/system.hpp"

#include <map>
#include <memory>

#include "win32/com_errors.hpp"
#include "win32/dispatch_object.hpp"
#include "win32/event_sink.hpp"
#include "win32/ide_adapters.hpp"
#include "win32/ide_events.hpp"

namespace win32 {
namespace {

using Microsoft::WRL::ComPtr;

// Arguments of an event that do not fit end the event with its HRESULT.
void Require(HRESULT hr) { ThrowIfFailed(hr, u"The event's arguments"); }

void Deliver(ide::VBControlsEventsSink& sink, DISPID id, const DispatchArgs& args) {
  ComPtr<IDispatch> control;
  switch (id) {
    case kItemAdded:
    case kItemRemoved:
      Require(args.Expect(1, 1));
      Require(args.Object(0, control));
      if (id == kItemAdded) {
        sink.ItemAdded(Adapt<ide::VBControl>(control));
      } else {
        sink.ItemRemoved(Adapt<ide::VBControl>(control));
      }
      break;
    case kItemRenamed: {
      vb::Text old_name;
      LONG old_index = 0;
      Require(args.Expect(3, 3));
      Require(args.Object(0, control));
      Require(args.Text(1, old_name));
      Require(args.Long(2, old_index));
      sink.ItemRenamed(Adapt<ide::VBControl>(control), old_name, old_index);
      break;
    }
    default:
      break;  // an event the add-in does not take
  }
}

void Deliver(ide::CommandBarEventsSink& sink, DISPID id, const DispatchArgs& args) {
  if (id != kClick) return;
  ComPtr<IDispatch> control;
  bool handled = false, cancel_default = false;
  Require(args.Expect(3, 3));
  Require(args.Object(0, control));
  Require(args.Boolean(1, handled));
  Require(args.Boolean(2, cancel_default));
  sink.Click(Adapt<ide::CommandBarControl>(control), handled, cancel_default);
  args.SetBoolean(1, handled);
  args.SetBoolean(2, cancel_default);
}

// An events object of the IDE: each advised receiver has its own
// connection, gone on Unadvise or with the adapter.
template <class Interface, class Sink>
class EventSource final : public Adapter<Interface> {
 public:
  EventSource(ComPtr<IDispatch> object, std::wstring_view interface_name, const IID& source)
      : Adapter<Interface>(std::move(object), interface_name), source_(source) {}

  void Advise(Sink* sink) override {
    if (!sink || connections_.count(sink)) return;
    connections_.emplace(
        sink, std::make_unique<Connection>(
                  this->Dispatch(), source_,
                  [sink](DISPID id, const DispatchArgs& args) { Deliver(*sink, id, args); }));
  }
  void Unadvise(Sink* sink) override { connections_.erase(sink); }

 private:
  IID source_;
  std::map<Sink*, std::unique_ptr<Connection>> connections_;
};

class EventsAdapter final : public Adapter<ide::Events> {
 public:
  explicit EventsAdapter(ComPtr<IDispatch> object) : Adapter(std::move(object), L"Events") {}

  std::shared_ptr<ide::CommandBarEvents> CommandBarEvents(
      const std::shared_ptr<ide::CommandBarControl>& control) override {
    return AdaptResult<ide::CommandBarEvents>(
        Late().Get(L"CommandBarEvents", {Variant(DispatchOf(control.get()))}));
  }
  std::shared_ptr<ide::VBControlsEvents> VBControlsEvents(const ide::ObjectPtr& project,
                                                          const ide::ObjectPtr& form) override {
    return AdaptResult<ide::VBControlsEvents>(
        Late().Get(L"VBControlsEvents",
                   {Variant(DispatchOf(project.get())), Variant(DispatchOf(form.get()))}));
  }
};

class VBEAdapter final : public Adapter<ide::VBE> {
 public:
  explicit VBEAdapter(ComPtr<IDispatch> object) : Adapter(std::move(object), L"VBE") {}

  std::shared_ptr<ide::CommandBars> CommandBars() override {
    return AdaptResult<ide::CommandBars>(Late().Get(L"CommandBars"));
  }
  std::shared_ptr<ide::Events> Events() override {
    return AdaptResult<ide::Events>(Late().Get(L"Events"));
  }
  ide::ObjectPtr ActiveVBProject() override {
    return AdaptResult<ide::Object>(Late().Get(L"ActiveVBProject"));
  }
};

}  // namespace

template <>
std::shared_ptr<ide::Object> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<DispatchObject>(std::move(object));
}
template <>
std::shared_ptr<ide::VBE> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<VBEAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::Events> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<EventsAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::CommandBarEvents> Adapt(ComPtr<IDispatch> object) {
  if (!object) return nullptr;
  return std::make_shared<EventSource<ide::CommandBarEvents, ide::CommandBarEventsSink>>(
      std::move(object), L"CommandBarEvents", kIID_CommandBarEvents);
}
template <>
std::shared_ptr<ide::VBControlsEvents> Adapt(ComPtr<IDispatch> object) {
  if (!object) return nullptr;
  return std::make_shared<EventSource<ide::VBControlsEvents, ide::VBControlsEventsSink>>(
      std::move(object), L"VBControlsEvents", kIID_VBControlsEvents);
}

HWND MainWindowOf(IDispatch* vbe) noexcept {
  try {
    const LateBound window(LateBound(vbe, L"VBE").Get(L"MainWindow").Dispatch(), L"Window");
    return reinterpret_cast<HWND>(static_cast<INT_PTR>(window.Get(L"hWnd").ToLong()));
  } catch (...) {
    // Best effort: without it, message boxes belong to the active window.
    return nullptr;
  }
}

}  // namespace win32
