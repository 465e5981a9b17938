// The command bars: the "Add-Ins" bar and the add-in's entry on it.
#include "win32/system.hpp"

#include "win32/dispatch_object.hpp"
#include "win32/ide_adapters.hpp"

namespace win32 {
namespace {

using Microsoft::WRL::ComPtr;

class CommandBarControlAdapter final : public Adapter<ide::CommandBarControl> {
 public:
  explicit CommandBarControlAdapter(ComPtr<IDispatch> object)
      : Adapter(std::move(object), L"CommandBarControl") {}

  vb::Text Caption() const override { return Late().Get(L"Caption").ToValue().ToText(); }
  void SetCaption(const vb::Text& caption) override { Late().Let(L"Caption", vb::Value(caption)); }
  // Delete([Temporary]): the optional argument is left out, not sent empty.
  void Delete() override { Late().Call(L"Delete"); }
};

class CommandBarControlsAdapter final : public Adapter<ide::CommandBarControls> {
 public:
  explicit CommandBarControlsAdapter(ComPtr<IDispatch> object)
      : Adapter(std::move(object), L"CommandBarControls") {}

  // Add([Type], [Id], [Parameter], [Before], [Temporary]) with the type
  // alone, a 16-bit integer.
  std::shared_ptr<ide::CommandBarControl> Add(std::int16_t type) override {
    return AdaptResult<ide::CommandBarControl>(Late().Call(L"Add", {vb::Value(type)}));
  }
};

class CommandBarAdapter final : public Adapter<ide::CommandBar> {
 public:
  explicit CommandBarAdapter(ComPtr<IDispatch> object)
      : Adapter(std::move(object), L"CommandBar") {}

  vb::Text Name() const override { return Late().Get(L"Name").ToValue().ToText(); }
  std::shared_ptr<ide::CommandBarControls> Controls() override {
    return AdaptResult<ide::CommandBarControls>(Late().Get(L"Controls"));
  }
};

class CommandBarsAdapter final : public Adapter<ide::CommandBars> {
 public:
  explicit CommandBarsAdapter(ComPtr<IDispatch> object)
      : Adapter(std::move(object), L"CommandBars") {}

  std::shared_ptr<ide::CommandBar> Item(const vb::Text& name) override {
    try {
      return AdaptResult<ide::CommandBar>(Late().Get(L"Item", {vb::Value(name)}));
    } catch (const vb::Failure&) {
      // The bars refuse a name they do not have: no such bar.
      return nullptr;
    }
  }
};

}  // namespace

template <>
std::shared_ptr<ide::CommandBars> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<CommandBarsAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::CommandBar> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<CommandBarAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::CommandBarControls> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<CommandBarControlsAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::CommandBarControl> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<CommandBarControlAdapter>(std::move(object));
}

}  // namespace win32
