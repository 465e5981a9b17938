#include "vb/convert.hpp"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace vb {
namespace {

bool IsSpace(char16_t c) { return c == u' ' || c == u'\t'; }

TextView StripSpace(TextView t) {
  while (!t.empty() && IsSpace(t.front())) t.remove_prefix(1);
  while (!t.empty() && IsSpace(t.back())) t.remove_suffix(1);
  return t;
}

bool EqualsNoCase(TextView a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    char16_t x = a[i], y = b[i];
    if (x >= u'a' && x <= u'z') x = static_cast<char16_t>(x - 32);
    if (y >= u'a' && y <= u'z') y = static_cast<char16_t>(y - 32);
    if (x != y) return false;
  }
  return true;
}

// "&H1F" and "&O17": the runtime's hexadecimal and octal forms.
std::optional<double> ParseRadix(TextView t) {
  if (t.size() < 3 || t[0] != u'&') return std::nullopt;
  int base;
  if (t[1] == u'H' || t[1] == u'h') {
    base = 16;
  } else if (t[1] == u'O' || t[1] == u'o') {
    base = 8;
  } else {
    return std::nullopt;
  }
  std::uint64_t v = 0;
  for (char16_t c : t.substr(2)) {
    int d;
    if (c >= u'0' && c <= u'9') {
      d = c - u'0';
    } else if (base == 16 && c >= u'a' && c <= u'f') {
      d = c - u'a' + 10;
    } else if (base == 16 && c >= u'A' && c <= u'F') {
      d = c - u'A' + 10;
    } else {
      return std::nullopt;
    }
    if (d >= base) return std::nullopt;
    v = v * base + d;
    if (v > 0xFFFFFFFFull) throw Failure::Of(kOverflow);
  }
  // Up to four hex digits is an Integer, more a Long, both two's complement.
  const std::size_t digits = t.size() - 2;
  if (base == 16 && digits <= 4) return static_cast<double>(static_cast<std::int16_t>(v));
  return static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(v)));
}

// Reads the text as a number the way the runtime's conversions do: blanks
// around, a sign, digits with optional thousands commas, a fraction, an
// exponent (E or D). Throws Type mismatch for anything else.
double ParseNumber(TextView text) {
  const TextView t = StripSpace(text);
  if (auto radix = ParseRadix(t)) return *radix;
  std::string ascii;
  ascii.reserve(t.size());
  std::size_t i = 0;
  if (i < t.size() && (t[i] == u'+' || t[i] == u'-')) {
    if (t[i] == u'-') ascii.push_back('-');
    ++i;
  }
  bool digits = false;
  while (i < t.size() && ((t[i] >= u'0' && t[i] <= u'9') || (t[i] == u',' && digits))) {
    if (t[i] != u',') ascii.push_back(static_cast<char>(t[i]));
    digits = digits || t[i] != u',';
    ++i;
  }
  if (i < t.size() && t[i] == u'.') {
    ascii.push_back('.');
    ++i;
    while (i < t.size() && t[i] >= u'0' && t[i] <= u'9') {
      ascii.push_back(static_cast<char>(t[i++]));
      digits = true;
    }
  }
  if (!digits) throw Failure::Of(kTypeMismatch);
  if (i < t.size() && (t[i] == u'e' || t[i] == u'E' || t[i] == u'd' || t[i] == u'D')) {
    ascii.push_back('e');
    ++i;
    if (i < t.size() && (t[i] == u'+' || t[i] == u'-')) ascii.push_back(static_cast<char>(t[i++]));
    bool exp_digits = false;
    while (i < t.size() && t[i] >= u'0' && t[i] <= u'9') {
      ascii.push_back(static_cast<char>(t[i++]));
      exp_digits = true;
    }
    if (!exp_digits) throw Failure::Of(kTypeMismatch);
  }
  if (i != t.size()) throw Failure::Of(kTypeMismatch);
  double v = 0;
  const auto res = std::from_chars(ascii.data(), ascii.data() + ascii.size(), v);
  if (res.ec == std::errc::result_out_of_range) throw Failure::Of(kOverflow);
  if (res.ec != std::errc()) throw Failure::Of(kTypeMismatch);
  return v;
}

// Round half to even, then check the range.
template <class T>
T RoundToInteger(double v) {
  if (!std::isfinite(v)) throw Failure::Of(kOverflow);
  const double r = std::nearbyint(v);  // default rounding mode: to nearest, ties to even
  if (r < static_cast<double>(std::numeric_limits<T>::min()) ||
      r > static_cast<double>(std::numeric_limits<T>::max())) {
    throw Failure::Of(kOverflow);
  }
  return static_cast<T>(r);
}

}  // namespace

Boolean CBool(TextView text) {
  const TextView t = StripSpace(text);
  if (EqualsNoCase(t, u"True")) return Boolean::True;
  if (EqualsNoCase(t, u"False")) return Boolean::False;
  return ToBoolean(ParseNumber(t) != 0.0);
}

Integer CInt(TextView text) { return RoundToInteger<Integer>(ParseNumber(text)); }

Long CLng(TextView text) { return RoundToInteger<Long>(ParseNumber(text)); }

Single CSng(TextView text) {
  const double v = ParseNumber(text);
  if (std::fabs(v) > std::numeric_limits<float>::max()) throw Failure::Of(kOverflow);
  return static_cast<Single>(v);
}

Integer CInt(Single value) { return RoundToInteger<Integer>(value); }

Text SingleToText(Single value) {
  if (value == 0.0F) return u"0";
  char buf[64];
  const float mag = std::fabs(value);
  const bool scientific = mag >= 1e15F || mag < 1e-5F;
  const auto res =
      std::to_chars(buf, buf + sizeof buf, value,
                    scientific ? std::chars_format::scientific : std::chars_format::fixed);
  std::string s(buf, res.ptr);
  Text out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] == 'e') {
      // The runtime writes exponents as "E+20", "E-07": a sign and two digits.
      out.push_back(u'E');
      const char sign = s[i + 1];
      std::string exp = s.substr(i + 2);
      while (exp.size() < 2) exp.insert(exp.begin(), '0');
      out.push_back(static_cast<char16_t>(sign));
      for (char c : exp) out.push_back(static_cast<char16_t>(c));
      break;
    }
    out.push_back(static_cast<char16_t>(s[i]));
  }
  return out;
}

Text BooleanToText(Boolean value) { return IsTrue(value) ? u"True" : u"False"; }

Text IntegerToText(Long value) {
  const std::string s = std::to_string(value);
  return Text(s.begin(), s.end());
}

}  // namespace vb
