// A control's font as the IDE keeps it: name, size, weight (Bold), italic,
// underline, strikethrough and character set, with the checks the standard
// font object applies to writes.
//
// A new font is "MS Sans Serif", 8.25 points, nothing set. Size is kept as a
// Single; since values crossing into the IDE have no Single kind, Get(Size)
// answers the shortest decimal text ("8.25") -- a guess at what an add-in
// needs, written here so it can be checked. Bold maps to the weight: True
// writes 700, False 400, and a weight above 550 reads as Bold. `raw` keeps
// the text a file gave the whole font block; any write clears it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "ide/object_model.hpp"
#include "vb/value.hpp"

namespace workbench {

class Font {
 public:
  static constexpr char16_t kDefaultName[] = u"MS Sans Serif";
  static constexpr vb::Single kDefaultSize = 8.25F;
  static constexpr vb::Single kMaxSize = 2048.0F;

  const vb::Text& Name() const { return name_; }
  vb::Single Size() const { return size_; }
  bool Bold() const { return weight_ > 550; }
  bool Italic() const { return italic_; }
  bool Underline() const { return underline_; }
  bool Strikethrough() const { return strikethrough_; }
  std::int16_t Weight() const { return weight_; }
  std::int16_t Charset() const { return charset_; }

  // A write as ide::FontObject::Put does it: Name non-empty text; Size a
  // number (or numeric text) > 0 and <= 2048; the flags Booleans, numbers or
  // text coerced as CBool does. Fails with 380 and leaves the font unchanged.
  void Put(ide::FontDispId id, const vb::Value& value);
  // Name as text, Size as text (see above), the flags as Booleans.
  vb::Value Get(ide::FontDispId id) const;

  // Loading from a file: stored as given, no checks, `raw` kept.
  void SetName(vb::Text name) { name_ = std::move(name); }
  void SetSize(vb::Single size) { size_ = size; }
  void SetBold(bool bold) { weight_ = bold ? 700 : 400; }
  void SetWeight(std::int16_t weight) { weight_ = weight; }
  void SetItalic(bool on) { italic_ = on; }
  void SetUnderline(bool on) { underline_ = on; }
  void SetStrikethrough(bool on) { strikethrough_ = on; }
  void SetCharset(std::int16_t charset) { charset_ = charset; }

  std::string raw;

  friend bool operator==(const Font& a, const Font& b) {
    return a.name_ == b.name_ && a.size_ == b.size_ && a.weight_ == b.weight_ &&
           a.italic_ == b.italic_ && a.underline_ == b.underline_ &&
           a.strikethrough_ == b.strikethrough_ && a.charset_ == b.charset_;
  }

 private:
  vb::Text name_ = kDefaultName;
  vb::Single size_ = kDefaultSize;
  std::int16_t weight_ = 400;
  std::int16_t charset_ = 0;
  bool italic_ = false;
  bool underline_ = false;
  bool strikethrough_ = false;
};

// The member's name as traces and property paths spell it ("Size").
const char16_t* FontMemberName(ide::FontDispId id);
// The member called `name` (any case), or nullopt.
std::optional<ide::FontDispId> FontMemberByName(vb::TextView name);

}  // namespace workbench
