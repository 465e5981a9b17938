// A control in the designer: the control, its collection and form, its
// properties, and the font object of its Font property.
#include "win32/system.hpp"

#include <ocidl.h>

#include "vb/convert.hpp"
#include "win32/dispatch_object.hpp"
#include "win32/ide_adapters.hpp"

namespace win32 {
namespace {

using Microsoft::WRL::ComPtr;

// The standard font object, by its standard numbers. Size travels as
// currency (points × 10000) and reads back as the text of a single, as the
// add-in's own font records read it; the styles are VT_BOOL.
class FontAdapter final : public Adapter<ide::FontObject> {
 public:
  explicit FontAdapter(ComPtr<IDispatch> object) : Adapter(std::move(object), L"IFontDisp") {}

  void Put(ide::FontDispId id, const vb::Value& value) override {
    const Variant sent(value);
    Late().Let(static_cast<DISPID>(id), id == ide::FontDispId::Size ? sent.As(VT_CY) : sent);
  }
  vb::Value Get(ide::FontDispId id) const override {
    const Variant value = Late().Get(static_cast<DISPID>(id));
    if (id != ide::FontDispId::Size) return value.ToValue();
    return vb::Value(vb::SingleToText(V_R4(&value.As(VT_R4).Get())));
  }
};

class PropertyAdapter final : public Adapter<ide::Property> {
 public:
  explicit PropertyAdapter(ComPtr<IDispatch> object) : Adapter(std::move(object), L"Property") {}

  vb::Text Name() const override { return Late().Get(L"Name").ToValue().ToText(); }
  vb::Value Value() const override { return Late().Get(L"Value").ToValue(); }
  void SetValue(const vb::Value& value) override { Late().Let(L"Value", value); }
  // A font answers IFontDisp; any other object is handed out as it is.
  ide::ObjectPtr Object() override {
    const ComPtr<IUnknown> object = Late().Get(L"Object").Unknown();
    if (!object) return nullptr;
    ComPtr<IDispatch> dispatch;
    if (SUCCEEDED(object->QueryInterface(IID_IFontDisp,
                                         reinterpret_cast<void**>(dispatch.GetAddressOf())))) {
      return Adapt<ide::FontObject>(dispatch);
    }
    if (FAILED(object.As(&dispatch))) throw vb::Failure::Of(vb::kTypeMismatch);
    return Adapt<ide::Object>(dispatch);
  }
};

class PropertiesAdapter final : public Adapter<ide::Properties> {
 public:
  explicit PropertiesAdapter(ComPtr<IDispatch> object)
      : Adapter(std::move(object), L"_Properties") {}

  // A name the control lacks fails as the IDE fails it.
  std::shared_ptr<ide::Property> Item(const vb::Text& name) override {
    return AdaptResult<ide::Property>(Late().Get(L"Item", {vb::Value(name)}));
  }
};

class VBFormAdapter final : public Adapter<ide::VBForm> {
 public:
  explicit VBFormAdapter(ComPtr<IDispatch> object) : Adapter(std::move(object), L"VBForm") {}

  std::shared_ptr<ide::VBComponent> Parent() override {
    return AdaptResult<ide::VBComponent>(Late().Get(L"Parent"));
  }
};

class VBControlsAdapter final : public Adapter<ide::VBControls> {
 public:
  explicit VBControlsAdapter(ComPtr<IDispatch> object)
      : Adapter(std::move(object), L"_VBControls") {}

  std::shared_ptr<ide::VBForm> Parent() override {
    return AdaptResult<ide::VBForm>(Late().Get(L"Parent"));
  }
};

class VBControlAdapter final : public Adapter<ide::VBControl> {
 public:
  explicit VBControlAdapter(ComPtr<IDispatch> object) : Adapter(std::move(object), L"VBControl") {}

  vb::Text ClassName() const override { return Late().Get(L"ClassName").ToValue().ToText(); }
  std::shared_ptr<ide::VBControls> Collection() override {
    return AdaptResult<ide::VBControls>(Late().Get(L"Collection"));
  }
  std::shared_ptr<ide::Properties> Properties() override {
    return AdaptResult<ide::Properties>(Late().Get(L"Properties"));
  }
};

}  // namespace

template <>
std::shared_ptr<ide::VBControl> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<VBControlAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::VBControls> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<VBControlsAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::VBForm> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<VBFormAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::Properties> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<PropertiesAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::Property> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<PropertyAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::FontObject> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<FontAdapter>(std::move(object));
}

}  // namespace win32
