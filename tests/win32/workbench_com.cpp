#include "workbench_com.hpp"

#include <olectl.h>

#include <map>
#include <string>
#include <vector>

#include "win32/com_errors.hpp"
#include "win32/ide_events.hpp"

namespace workbench_com {
namespace {

using comdouble::ByRef;
using comdouble::Call;
using comdouble::ComPtr;
using comdouble::Handler;
using comdouble::Object;
using win32::Variant;

// Members the IDE's libraries leave to be found by name: a number of our own.
constexpr DISPID kParent = 0x60020040;

// Every object handed out, by its IDispatch, so that one handed back (a
// project, a menu entry) is the workbench's own again.
std::map<IDispatch*, std::weak_ptr<ide::Object>> g_handed_out;

ComPtr<Object> Make(const ide::ObjectPtr& of) {
  auto object = Object::Make();
  g_handed_out[object.Get()] = of;
  return object;
}
template <class Interface>
std::shared_ptr<Interface> HandedBack(const Variant& object) {
  const auto found = g_handed_out.find(object.Dispatch().Get());
  return std::dynamic_pointer_cast<Interface>(found == g_handed_out.end() ? nullptr
                                                                          : found->second.lock());
}

// A member's body; a failure of the workbench goes back in the caller's
// EXCEPINFO with its number and words.
template <class Body>
Handler Does(Body body) {
  return [body](Call& call) { return win32::Guarded(call.exception, [&] { body(call); }); };
}
vb::Value Arg(const Call& call, std::size_t i) { return call.args.at(i).ToValue(); }
// A property of the workbench object: `get` gives it, `let` (if any) takes it.
template <class Get, class Let = std::nullptr_t>
Handler Prop(Get get, Let let = nullptr) {
  return Does([get, let](Call& call) {
    if constexpr (!std::is_null_pointer_v<Let>) {
      if (call.IsPut()) return let(Arg(call, 0));
    }
    call.result = get(call);
  });
}
Variant Of(const ComPtr<Object>& object) { return Variant(object.Get()); }

ComPtr<Object> MenuEntry(const std::shared_ptr<ide::CommandBarControl>& entry);

// Hears the workbench's events on one source and fires them at the sinks
// advised on `target`'s connection point; unadvised when the target goes.
class Relay final : public ide::VBControlsEventsSink, public ide::CommandBarEventsSink {
 public:
  Relay(Object* target, std::shared_ptr<ide::VBControlsEvents> controls,
        std::shared_ptr<ide::CommandBarEvents> menu)
      : target_(target), controls_(std::move(controls)), menu_(std::move(menu)) {
    if (controls_) controls_->Advise(this);
    if (menu_) menu_->Advise(this);
  }
  ~Relay() override {
    if (controls_) controls_->Unadvise(this);
    if (menu_) menu_->Unadvise(this);
  }

  void ItemAdded(const std::shared_ptr<ide::VBControl>& control) override {
    Fire(win32::kItemAdded, {Of(Control(control))});
  }
  void ItemRemoved(const std::shared_ptr<ide::VBControl>& control) override {
    Fire(win32::kItemRemoved, {Of(Control(control))});
  }
  void ItemRenamed(const std::shared_ptr<ide::VBControl>& control, const vb::Text& old_name,
                   std::int32_t old_index) override {
    Fire(win32::kItemRenamed, {Of(Control(control)), vb::Value(old_name), vb::Value(old_index)});
  }
  void Click(const std::shared_ptr<ide::CommandBarControl>& entry, bool& handled,
             bool& cancel_default) override {
    VARIANT_BOOL h = handled ? VARIANT_TRUE : 0, c = cancel_default ? VARIANT_TRUE : 0;
    Fire(win32::kClick, {Of(MenuEntry(entry)), ByRef(VT_BOOL, &h), ByRef(VT_BOOL, &c)});
    handled = h, cancel_default = c;
  }

 private:
  // A sink's failure is the failure of the workbench's action.
  void Fire(DISPID id, const std::vector<Variant>& args) {
    std::wstring words;
    if (FAILED(target_->Fire(id, args, &words))) {
      throw vb::Failure(vb::kInvalidProcedureCall, vb::Text(words.begin(), words.end()));
    }
  }

  Object* target_;
  std::shared_ptr<ide::VBControlsEvents> controls_;
  std::shared_ptr<ide::CommandBarEvents> menu_;
};

ComPtr<Object> Font(const std::shared_ptr<ide::FontObject>& font) {
  auto object = Make(font);
  object->Answers(IID_IFontDisp);
  const wchar_t* names[] = {L"Name",   L"",          L"Size",         L"Bold",
                            L"Italic", L"Underline", L"Strikethrough"};
  for (const auto id :
       {ide::FontDispId::Name, ide::FontDispId::Size, ide::FontDispId::Bold,
        ide::FontDispId::Italic, ide::FontDispId::Underline, ide::FontDispId::Strikethrough}) {
    object->Member(names[static_cast<int>(id)], static_cast<DISPID>(id),
                   Prop([font, id](Call&) { return Variant(font->Get(id)); },
                        [font, id](const vb::Value& value) { font->Put(id, value); }));
  }
  return object;
}

ComPtr<Object> Property(const std::shared_ptr<ide::Property>& property) {
  if (!property) return nullptr;
  auto object = Make(property);
  object->Member(L"Name", 40, Prop([property](Call&) { return Variant(property->Name()); }))
      .Member(L"Value", 0,
              Prop([property](Call&) { return Variant(property->Value()); },
                   [property](const vb::Value& value) { property->SetValue(value); }))
      .Member(L"Object", 45, Prop([property](Call&) {
                const auto font = std::dynamic_pointer_cast<ide::FontObject>(property->Object());
                return Of(font ? Font(font) : nullptr);
              }));
  return object;
}

ComPtr<Object> Members(const std::shared_ptr<ide::Members>& members) {
  auto object = Make(members);
  object->Member(L"Count", 0x60020003, Prop([members](Call&) {
                   return Variant(vb::Value(static_cast<vb::Long>(members->All().size())));
                 }));
  // Item(index from 1, or name); Nothing for a member the module lacks.
  object->Member(
      L"Item", 0, Prop([members](Call& call) {
        const auto all = members->All();
        const std::size_t i = call.args.at(0).Type() == VT_I4 ? call.args[0].ToLong() : 0;
        const auto member =
            i ? (i <= all.size() ? all[i - 1] : nullptr) : members->Item(Arg(call, 0).ToText());
        if (!member) return Variant();
        auto found = Make(member);
        found->Member(L"Name", 2, Prop([member](Call&) { return Variant(member->Name()); }))
            .Member(L"CodeLocation", 6, Prop([member](Call&) {
                      return Variant(vb::Value(vb::Long(member->CodeLocation())));
                    }));
        return Of(found);
      }));
  return object;
}

ComPtr<Object> CodeModule(const std::shared_ptr<ide::CodeModule>& module) {
  if (!module) return nullptr;
  const auto count = [](const Call& call, std::size_t i) {
    return static_cast<std::int32_t>(call.args.at(i).ToLong());
  };
  auto object = Make(module);
  object
      ->Member(L"CountOfLines", 0x60020007, Prop([module](Call&) {
                 return Variant(vb::Value(vb::Long(module->CountOfLines())));
               }))
      .Member(L"Lines", 0x60020006, Prop([module, count](Call& call) {
                return Variant(module->Lines(count(call, 0), count(call, 1)));
              }))
      .Member(L"DeleteLines", 0x60020009, Does([module, count](Call& call) {
                module->DeleteLines(count(call, 0), count(call, 1));
              }))
      .Member(L"AddFromString", 0x60020004,
              Does([module](Call& call) { module->AddFromString(Arg(call, 0).ToText()); }))
      .Member(L"Members", 0x60020013,
              Prop([module](Call&) { return Of(Members(module->Members())); }));
  return object;
}

ComPtr<Object> Component(const std::shared_ptr<ide::VBComponent>& component) {
  auto object = Make(component);
  object->Member(L"CodeModule", 50,
                 Prop([component](Call&) { return Of(CodeModule(component->CodeModule())); }));
  return object;
}

}  // namespace

ComPtr<Object> Control(const std::shared_ptr<ide::VBControl>& control) {
  auto object = Make(control);
  object->Member(L"ClassName", 0, Prop([control](Call&) { return Variant(control->ClassName()); }))
      .Member(L"Collection", 2, Prop([control](Call&) {
                const auto controls = control->Collection();
                auto collection = Make(controls);
                collection->Member(L"Parent", kParent, Prop([controls](Call&) {
                                     const auto form = controls->Parent();
                                     auto designer = Make(form);
                                     designer->Member(L"Parent", kParent + 1, Prop([form](Call&) {
                                                        return Of(Component(form->Parent()));
                                                      }));
                                     return Of(designer);
                                   }));
                return Of(collection);
              }))
      .Member(L"Properties", 42, Prop([control](Call&) {
                const auto properties = control->Properties();
                auto collection = Make(properties);
                collection->Member(L"Item", 0, Prop([properties](Call& call) {
                                     return Of(Property(properties->Item(Arg(call, 0).ToText())));
                                   }));
                return Of(collection);
              }));
  return object;
}

namespace {

ComPtr<Object> MenuEntry(const std::shared_ptr<ide::CommandBarControl>& entry) {
  auto object = Make(entry);
  object
      ->Member(L"Caption", 0x60040003,
               Prop([entry](Call&) { return Variant(entry->Caption()); },
                    [entry](const vb::Value& caption) { entry->SetCaption(caption.ToText()); }))
      .Member(L"Delete", 0x60040007, Does([entry](Call&) { entry->Delete(); }));
  return object;
}

// CommandBars.Item(name): Nothing for a bar the IDE lacks.
ComPtr<Object> Bars(const std::shared_ptr<ide::CommandBars>& bars) {
  auto object = Make(bars);
  object->Member(
      L"Item", 0, Prop([bars](Call& call) {
        const auto bar = bars->Item(Arg(call, 0).ToText());
        if (!bar) return Variant();
        auto found = Make(bar);
        found->Member(L"Name", 0x6004000E, Prop([bar](Call&) { return Variant(bar->Name()); }))
            .Member(L"Controls", 0x60040003, Prop([bar](Call&) {
                      const auto entries = bar->Controls();
                      auto controls = Make(entries);
                      controls->Member(L"Add", 0x60030000, Prop([entries](Call& add) {
                                         return Of(MenuEntry(entries->Add(
                                             static_cast<std::int16_t>(add.args.at(0).ToLong()))));
                                       }));
                      return Of(controls);
                    }));
        return Of(found);
      }));
  return object;
}

ComPtr<Object> Events(const std::shared_ptr<ide::Events>& events) {
  auto object = Make(events);
  object->Member(L"CommandBarEvents", 205, Prop([events](Call& call) {
                   const auto source = events->CommandBarEvents(
                       HandedBack<ide::CommandBarControl>(call.args.at(0)));
                   auto target = Make(source);
                   target->Source(win32::kIID_CommandBarEvents)
                       .Keep(std::make_shared<Relay>(target.Get(), nullptr, source));
                   return Of(target);
                 }));
  object->Member(L"VBControlsEvents", 203, Prop([events](Call& call) {
                   const auto source =
                       events->VBControlsEvents(HandedBack<ide::Object>(call.args.at(0)),
                                                HandedBack<ide::Object>(call.args.at(1)));
                   auto target = Make(source);
                   target->Source(win32::kIID_VBControlsEvents)
                       .Keep(std::make_shared<Relay>(target.Get(), source, nullptr));
                   return Of(target);
                 }));
  return object;
}

}  // namespace

ComPtr<Object> Vbe(const std::shared_ptr<workbench::Ide>& ide) {
  auto object = Make(ide);
  object->Member(L"CommandBars", 108, Prop([ide](Call&) { return Of(Bars(ide->CommandBars())); }))
      .Member(L"Events", 111, Prop([ide](Call&) { return Of(Events(ide->Events())); }))
      .Member(L"ActiveVBProject", 201, Prop([ide](Call&) {
                const auto project = ide->ActiveVBProject();
                return Of(project ? Make(project) : nullptr);
              }));
  return object;
}

}  // namespace workbench_com
