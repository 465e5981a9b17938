#include "win32/event_sink.hpp"

#include "win32/com_errors.hpp"

namespace win32 {

EventSink::EventSink(const IID& source, Handler handler)
    : source_(source), handler_(std::move(handler)) {}

HRESULT EventSink::QueryInterface(REFIID iid, void** out) {
  if (!out) return E_POINTER;
  // A source may ask for its own outgoing interface before it advises.
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) || IsEqualIID(iid, source_)) {
    *out = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  *out = nullptr;
  return E_NOINTERFACE;
}

HRESULT EventSink::GetIDsOfNames(REFIID /*iid*/, LPOLESTR* /*names*/, UINT count, LCID /*lcid*/,
                                 DISPID* ids) {
  // Sources call their sinks by number.
  for (UINT i = 0; ids && i < count; ++i) ids[i] = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;
}

HRESULT EventSink::Invoke(DISPID id, REFIID /*iid*/, LCID /*lcid*/, WORD /*flags*/,
                          DISPPARAMS* params, VARIANT* result, EXCEPINFO* exception,
                          UINT* arg_err) {
  if (result) VariantInit(result);
  // A copy, so a handler that unadvises its own sink (through a dialog that
  // it opens, say) does not destroy itself while it runs.
  const Handler handler = handler_;
  return Guarded(exception, [&] {
    if (handler) handler(id, DispatchArgs(params, arg_err));
  });
}

Connection::Connection(Microsoft::WRL::ComPtr<IDispatch> events, const IID& source,
                       EventSink::Handler handler)
    : events_(std::move(events)) {
  if (!events_) throw vb::Failure::Of(vb::kObjectNotSet);
  Microsoft::WRL::ComPtr<IConnectionPointContainer> container;
  ThrowIfFailed(events_.As(&container), u"The IDE's events object");
  ThrowIfFailed(container->FindConnectionPoint(source, &point_), u"The IDE's event source");
  sink_.Attach(new EventSink(source, std::move(handler)));
  const HRESULT hr = point_->Advise(sink_.Get(), &cookie_);
  if (FAILED(hr)) sink_->Detach();
  ThrowIfFailed(hr, u"Listening to the IDE's events");
}

Connection::~Connection() {
  point_->Unadvise(cookie_);
  sink_->Detach();
}

}  // namespace win32
