// A form's component and its code: the code module and its members.
#include "win32/system.hpp"

#include "win32/dispatch_object.hpp"
#include "win32/ide_adapters.hpp"

namespace win32 {
namespace {

using Microsoft::WRL::ComPtr;

class MemberAdapter final : public Adapter<ide::Member> {
 public:
  explicit MemberAdapter(ComPtr<IDispatch> object) : Adapter(std::move(object), L"Member") {}

  vb::Text Name() const override { return Late().Get(L"Name").ToValue().ToText(); }
  std::int32_t CodeLocation() const override { return Late().Get(L"CodeLocation").ToLong(); }
};

class MembersAdapter final : public Adapter<ide::Members> {
 public:
  explicit MembersAdapter(ComPtr<IDispatch> object) : Adapter(std::move(object), L"_Members") {}

  // The collection counts from 1.
  std::vector<std::shared_ptr<ide::Member>> All() override {
    const std::int32_t count = Late().Get(L"Count").ToLong();
    std::vector<std::shared_ptr<ide::Member>> members;
    members.reserve(count > 0 ? count : 0);
    for (vb::Long i = 1; i <= count; ++i) {
      members.push_back(AdaptResult<ide::Member>(Late().Get(L"Item", {vb::Value(i)})));
    }
    return members;
  }
  std::shared_ptr<ide::Member> Item(const vb::Text& name) override {
    try {
      return AdaptResult<ide::Member>(Late().Get(L"Item", {vb::Value(name)}));
    } catch (const vb::Failure&) {
      // The collection refuses a name it does not hold: no such member.
      return nullptr;
    }
  }
};

class CodeModuleAdapter final : public Adapter<ide::CodeModule> {
 public:
  explicit CodeModuleAdapter(ComPtr<IDispatch> object)
      : Adapter(std::move(object), L"_CodeModule") {}

  std::int32_t CountOfLines() const override { return Late().Get(L"CountOfLines").ToLong(); }
  vb::Text Lines(std::int32_t first, std::int32_t count) const override {
    return Late().Get(L"Lines", {vb::Value(first), vb::Value(count)}).ToValue().ToText();
  }
  void DeleteLines(std::int32_t first, std::int32_t count) override {
    Late().Call(L"DeleteLines", {vb::Value(first), vb::Value(count)});
  }
  void AddFromString(const vb::Text& text) override {
    Late().Call(L"AddFromString", {vb::Value(text)});
  }
  std::shared_ptr<ide::Members> Members() override {
    return AdaptResult<ide::Members>(Late().Get(L"Members"));
  }
};

class VBComponentAdapter final : public Adapter<ide::VBComponent> {
 public:
  explicit VBComponentAdapter(ComPtr<IDispatch> object)
      : Adapter(std::move(object), L"_VBComponent") {}

  vb::Text Name() const override { return Late().Get(L"Name").ToValue().ToText(); }
  std::shared_ptr<ide::CodeModule> CodeModule() override {
    return AdaptResult<ide::CodeModule>(Late().Get(L"CodeModule"));
  }
};

}  // namespace

template <>
std::shared_ptr<ide::VBComponent> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<VBComponentAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::CodeModule> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<CodeModuleAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::Members> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<MembersAdapter>(std::move(object));
}
template <>
std::shared_ptr<ide::Member> Adapt(ComPtr<IDispatch> object) {
  return MakeAdapter<MemberAdapter>(std::move(object));
}

}  // namespace win32
