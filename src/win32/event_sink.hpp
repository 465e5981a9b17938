// Receiving the IDE's events: a sink object the IDE calls, and its
// connection to an event source.
//
// EventSink is a COM object that answers IUnknown, IDispatch and the source's
// outgoing interface; its Invoke hands each event, with its arguments, to a
// handler and ends in one catch, so a failure goes back to the IDE as the
// failure of the event. Connection advises a new sink on an events object's
// connection point for the source, keeps the events object alive, and when
// it goes unadvises and detaches the sink: an event that arrives after that
// reaches nobody.
#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <wrl/client.h>

#include <functional>

#include "win32/com_object.hpp"
#include "win32/dispatch_args.hpp"

namespace win32 {

class EventSink final : public ComObject<IDispatch> {
 public:
  // Called for every event; failures pass to the source as the event's
  // failure.
  using Handler = std::function<void(DISPID id, const DispatchArgs& args)>;

  EventSink(const IID& source, Handler handler);
  void Detach() { handler_ = nullptr; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID lcid,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT* arg_err) override;

 private:
  IID source_;
  Handler handler_;
};

class Connection {
 public:
  // Advises; a refusal throws vb::Failure with the system's words.
  Connection(Microsoft::WRL::ComPtr<IDispatch> events, const IID& source,
             EventSink::Handler handler);
  // Unadvises and detaches; never fails.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

 private:
  Microsoft::WRL::ComPtr<IDispatch> events_;
  Microsoft::WRL::ComPtr<IConnectionPoint> point_;
  Microsoft::WRL::ComPtr<EventSink> sink_;
  DWORD cookie_ = 0;
};

}  // namespace win32
