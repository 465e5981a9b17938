// Checks of the standard font object's writes.
#include "workbench/font.hpp"

#include "vb/convert.hpp"
#include "workbench/class_rules.hpp"

namespace workbench {

namespace {

// Size accepts any number or numeric text; what it cannot read is refused.
vb::Single SizeOf(const vb::Value& value) {
  switch (value.GetKind()) {
    case vb::Kind::Text:
      try {
        return vb::CSng(value.AsText());
      } catch (const vb::Failure&) {
        throw InvalidValue();
      }
    case vb::Kind::Integer:
      return static_cast<vb::Single>(value.AsInteger());
    case vb::Kind::Long:
      return static_cast<vb::Single>(value.AsLong());
    case vb::Kind::Boolean:
      break;
  }
  throw InvalidValue();
}

bool FlagOf(const vb::Value& value) {
  return vb::IsTrue(CoerceToKind(vb::Kind::Boolean, value).AsBoolean());
}

}  // namespace

void Font::Put(ide::FontDispId id, const vb::Value& value) {
  switch (id) {
    case ide::FontDispId::Name: {
      vb::Text name = value.ToText();
      if (!value.Is(vb::Kind::Text) || name.empty()) throw InvalidValue();
      name_ = std::move(name);
      break;
    }
    case ide::FontDispId::Size: {
      const vb::Single size = SizeOf(value);
      // Written this way so that a NaN is refused too.
      if (!(size > 0.0F && size <= kMaxSize)) throw InvalidValue();
      size_ = size;
      break;
    }
    case ide::FontDispId::Bold:
      SetBold(FlagOf(value));
      break;
    case ide::FontDispId::Italic:
      italic_ = FlagOf(value);
      break;
    case ide::FontDispId::Underline:
      underline_ = FlagOf(value);
      break;
    case ide::FontDispId::Strikethrough:
      strikethrough_ = FlagOf(value);
      break;
    default:
      throw vb::Failure::Of(vb::kObjectLacksMember);
  }
  raw.clear();
}

vb::Value Font::Get(ide::FontDispId id) const {
  switch (id) {
    case ide::FontDispId::Name:
      return vb::Value(name_);
    case ide::FontDispId::Size:
      return vb::Value(vb::SingleToText(size_));
    case ide::FontDispId::Bold:
      return vb::Value(vb::ToBoolean(Bold()));
    case ide::FontDispId::Italic:
      return vb::Value(vb::ToBoolean(italic_));
    case ide::FontDispId::Underline:
      return vb::Value(vb::ToBoolean(underline_));
    case ide::FontDispId::Strikethrough:
      return vb::Value(vb::ToBoolean(strikethrough_));
  }
  throw vb::Failure::Of(vb::kObjectLacksMember);
}

const char16_t* FontMemberName(ide::FontDispId id) {
  switch (id) {
    case ide::FontDispId::Name:
      return u"Name";
    case ide::FontDispId::Size:
      return u"Size";
    case ide::FontDispId::Bold:
      return u"Bold";
    case ide::FontDispId::Italic:
      return u"Italic";
    case ide::FontDispId::Underline:
      return u"Underline";
    case ide::FontDispId::Strikethrough:
      return u"Strikethrough";
  }
  return u"?";
}

std::optional<ide::FontDispId> FontMemberByName(vb::TextView name) {
  for (ide::FontDispId id :
       {ide::FontDispId::Name, ide::FontDispId::Size, ide::FontDispId::Bold,
        ide::FontDispId::Italic, ide::FontDispId::Underline, ide::FontDispId::Strikethrough}) {
    if (vb::SameName(FontMemberName(id), name)) return id;
  }
  return std::nullopt;
}

}  // namespace workbench

// The object model declares this beside FontDispId; the workbench, which
// implements the model, defines it.
const char* ide::FontDispIdName(ide::FontDispId id) {
  switch (id) {
    case ide::FontDispId::Name:
      return "Name";
    case ide::FontDispId::Size:
      return "Size";
    case ide::FontDispId::Bold:
      return "Bold";
    case ide::FontDispId::Italic:
      return "Italic";
    case ide::FontDispId::Underline:
      return "Underline";
    case ide::FontDispId::Strikethrough:
      return "Strikethrough";
  }
  return "?";
}
