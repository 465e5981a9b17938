#include "vbfiles/frm_value.hpp"

#include <algorithm>

#include "vb/convert.hpp"

namespace vbfiles {
namespace {

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t'; }

vb::TextView TrimBlanks(vb::TextView text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

int HexDigit(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  return -1;
}

// Reads a quoted string starting at text[0] == '"'; sets `end` past the
// closing quote (or to the end of the text when it is missing).
vb::Text ReadQuoted(vb::TextView text, std::size_t& end) {
  vb::Text out;
  std::size_t i = 1;
  while (i < text.size()) {
    if (text[i] == u'"') {
      if (i + 1 < text.size() && text[i + 1] == u'"') {
        out.push_back(u'"');
        i += 2;
        continue;
      }
      ++i;
      break;
    }
    out.push_back(text[i++]);
  }
  end = i;
  return out;
}

// ":0000" after a quoted file name: the offset, or nothing when the text is
// not an offset.
std::optional<std::uint32_t> ReadFrxOffset(vb::TextView rest) {
  rest = TrimBlanks(rest);
  if (rest.size() < 2 || rest[0] != u':' || rest.size() > 9) return std::nullopt;
  std::uint32_t offset = 0;
  for (char16_t c : rest.substr(1)) {
    const int digit = HexDigit(c);
    if (digit < 0) return std::nullopt;
    offset = offset * 16 + static_cast<std::uint32_t>(digit);
  }
  return offset;
}

// Upper-case hexadecimal digits, at least `min_digits` of them.
vb::Text HexText(std::uint32_t value, std::size_t min_digits) {
  static constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  vb::Text out;
  do {
    out.insert(out.begin(), kDigits[value % 16]);
    value /= 16;
  } while (value != 0);
  if (out.size() < min_digits) out.insert(0, min_digits - out.size(), u'0');
  return out;
}

bool IsWholeNumber(vb::TextView text) {
  if (!text.empty() && text.front() == u'-') text.remove_prefix(1);
  return !text.empty() && text.size() <= 10 &&
         std::all_of(text.begin(), text.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

}  // namespace

FrmValue ParseFrmValue(vb::TextView value_text) {
  const vb::TextView text = TrimBlanks(value_text);
  FrmValue value;
  const bool dollar = text.size() >= 2 && text[0] == u'$' && text[1] == u'"';
  if (dollar || (!text.empty() && text[0] == u'"')) {
    std::size_t end = 0;
    const auto body = text.substr(dollar ? 1 : 0);
    vb::Text quoted = ReadQuoted(body, end);
    vb::TextView rest = body.substr(end);
    const auto comment_at = rest.find(u'\'');
    const auto offset = ReadFrxOffset(rest.substr(0, comment_at));
    if (offset) {
      value.form = FrmValue::Form::Frx;
      value.frx = {std::move(quoted), *offset, dollar};
    } else if (!dollar) {
      value.form = FrmValue::Form::Quoted;
      value.text = std::move(quoted);
    } else {
      // A $ before a plain string is no form the IDE writes; show it as it is.
      value.text = vb::Text(text);
      return value;
    }
    if (comment_at != vb::TextView::npos) {
      value.comment = vb::Text(TrimBlanks(rest.substr(comment_at + 1)));
    }
    return value;
  }
  const auto comment_at = text.find(u'\'');
  value.text = vb::Text(TrimBlanks(text.substr(0, comment_at)));
  if (comment_at != vb::TextView::npos) {
    value.comment = vb::Text(TrimBlanks(text.substr(comment_at + 1)));
  }
  return value;
}

std::optional<vb::Long> ParseFrmHex(vb::TextView text) {
  if (text.size() < 3 || text[0] != u'&' || (text[1] != u'H' && text[1] != u'h')) {
    return std::nullopt;
  }
  text.remove_prefix(2);
  if (!text.empty() && text.back() == u'&') text.remove_suffix(1);
  if (text.empty() || text.size() > 8) return std::nullopt;
  std::uint32_t value = 0;
  for (char16_t c : text) {
    const int digit = HexDigit(c);
    if (digit < 0) return std::nullopt;
    value = value * 16 + static_cast<std::uint32_t>(digit);
  }
  return static_cast<vb::Long>(value);
}

vb::Value UntypedFrmValue(const FrmValue& value, vb::TextView written) {
  if ((value.comment == u"True" || value.comment == u"False") &&
      (value.text == u"-1" || value.text == u"0")) {
    return vb::ToBoolean(value.text == u"-1");
  }
  if (const auto hex = ParseFrmHex(value.text)) return *hex;
  if (IsWholeNumber(value.text)) {
    try {
      return vb::CLng(value.text);
    } catch (const vb::Failure&) {
    }
  }
  return vb::Text(written);
}

vb::Text QuoteFrmString(vb::TextView text) {
  vb::Text out = u"\"";
  for (char16_t c : text) {
    if (c == u'"') out.push_back(u'"');
    out.push_back(c);
  }
  out.push_back(u'"');
  return out;
}

vb::Text FormatFrmBoolean(vb::Boolean value) {
  return vb::IsTrue(value) ? u"-1  'True" : u"0   'False";
}

vb::Text FormatFrmSingle(vb::Single value) { return vb::SingleToText(value); }

vb::Text FormatFrmColor(vb::Long value) {
  return u"&H" + HexText(static_cast<std::uint32_t>(value), 8) + u"&";
}

vb::Text FormatFrxReference(const FrxReference& reference) {
  return (reference.is_string ? u"$" : u"") + QuoteFrmString(reference.file) + u":" +
         HexText(reference.offset, 4);
}

vb::Text FormatFrmValue(const vb::Value& value, vb::TextView enum_name) {
  switch (value.GetKind()) {
    case vb::Kind::Text:
      return QuoteFrmString(value.AsText());
    case vb::Kind::Boolean:
      return FormatFrmBoolean(value.AsBoolean());
    case vb::Kind::Integer:
    case vb::Kind::Long: {
      vb::Text out = value.ToText();
      if (!enum_name.empty()) {
        out += u"  '";
        out += enum_name;
      }
      return out;
    }
  }
  return value.ToText();
}

vb::Text FormatPropertyLine(int depth, vb::TextView name, vb::TextView value_text) {
  vb::Text line(static_cast<std::size_t>(depth > 0 ? depth * 3 : 0), u' ');
  line += name;
  // Names of 16 characters or more meet the "=" directly, as the IDE writes
  // CausesValidation=   0   'False.
  if (name.size() < 16) line.append(16 - name.size(), u' ');
  line += u"=   ";
  line += value_text;
  return line;
}

}  // namespace vbfiles
