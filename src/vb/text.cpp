#include "vb/text.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "vb/text_scan.hpp"

namespace vb {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

// Windows-1252 bytes 0x80..0x9F; 0 marks the five undefined bytes, which map
// to the C1 control of the same number, as Windows does.
constexpr std::array<char16_t, 32> kCp1252High = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool IsBlank(char16_t c) { return c == u' '; }

}  // namespace

Text FromUtf8(std::string_view s) {
  Text out;
  out.reserve(s.size());
  std::size_t i = 0;
  while (i < s.size()) {
    const auto b0 = static_cast<unsigned char>(s[i]);
    char32_t cp;
    std::size_t len;
    if (b0 < 0x80) {
      cp = b0;
      len = 1;
    } else if ((b0 & 0xE0) == 0xC0) {
      cp = b0 & 0x1F;
      len = 2;
    } else if ((b0 & 0xF0) == 0xE0) {
      cp = b0 & 0x0F;
      len = 3;
    } else if ((b0 & 0xF8) == 0xF0) {
      cp = b0 & 0x07;
      len = 4;
    } else {
      out.push_back(kReplacement);
      ++i;
      continue;
    }
    bool ok = i + len <= s.size();
    for (std::size_t k = 1; ok && k < len; ++k) {
      const auto b = static_cast<unsigned char>(s[i + k]);
      if ((b & 0xC0) != 0x80) ok = false;
      cp = (cp << 6) | (b & 0x3F);
    }
    // Overlong forms, surrogates and values past U+10FFFF are invalid.
    static constexpr char32_t kMin[] = {0, 0, 0x80, 0x800, 0x10000};
    if (ok && (cp < kMin[len] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))) ok = false;
    if (!ok) {
      out.push_back(kReplacement);
      ++i;
      continue;
    }
    if (cp >= 0x10000) {
      cp -= 0x10000;
      out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
    } else {
      out.push_back(static_cast<char16_t>(cp));
    }
    i += len;
  }
  return out;
}

std::string ToUtf8(TextView t) {
  std::string out;
  out.reserve(t.size());
  for (std::size_t i = 0; i < t.size(); ++i) {
    char32_t cp = t[i];
    if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < t.size() && t[i + 1] >= 0xDC00 &&
        t[i + 1] <= 0xDFFF) {
      cp = 0x10000 + ((cp - 0xD800) << 10) + (t[i + 1] - 0xDC00);
      ++i;
    } else if (cp >= 0xD800 && cp <= 0xDFFF) {
      cp = kReplacement;
    }
    if (cp < 0x80) {
      out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
      out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
      out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
      out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
      out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
      out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
  }
  return out;
}

Text FromCp1252(std::string_view bytes) {
  Text out;
  out.reserve(bytes.size());
  for (char ch : bytes) {
    const auto b = static_cast<unsigned char>(ch);
    if (b >= 0x80 && b <= 0x9F && kCp1252High[b - 0x80] != 0) {
      out.push_back(kCp1252High[b - 0x80]);
    } else {
      out.push_back(b);
    }
  }
  return out;
}

std::string ToCp1252(TextView text) {
  std::string out;
  out.reserve(text.size());
  for (char16_t c : text) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
      out.push_back(static_cast<char>(c));
      continue;
    }
    char byte = '?';
    for (std::size_t k = 0; k < kCp1252High.size(); ++k) {
      if (kCp1252High[k] == c || (kCp1252High[k] == 0 && c == 0x80 + k)) {
        byte = static_cast<char>(0x80 + k);
        break;
      }
    }
    out.push_back(byte);
  }
  return out;
}

Text LTrim(TextView text) {
  std::size_t b = 0;
  while (b < text.size() && IsBlank(text[b])) ++b;
  return Text(text.substr(b));
}

Text RTrim(TextView text) {
  std::size_t e = text.size();
  while (e > 0 && IsBlank(text[e - 1])) --e;
  return Text(text.substr(0, e));
}

Text Trim(TextView text) { return LTrim(RTrim(text)); }

Text Left(TextView text, std::size_t length) { return Text(text.substr(0, length)); }

Text Mid(TextView text, std::size_t start) {
  if (start == 0 || start > text.size()) return Text();
  return Text(text.substr(start - 1));
}

Text Mid(TextView text, std::size_t start, std::size_t length) {
  if (start == 0 || start > text.size()) return Text();
  return Text(text.substr(start - 1, length));
}

std::size_t InStr(std::size_t start, TextView text, TextView find) {
  if (start == 0) start = 1;
  if (start > text.size() + 1) return 0;
  if (find.empty()) return start;
  const auto pos = FindText(text, find, start - 1);
  return pos == TextView::npos ? 0 : pos + 1;
}

Text Replace(TextView text, TextView find, TextView with) {
  if (find.empty()) return Text(text);
  // Found first, so that the result is allocated once at its size.
  std::vector<std::size_t> found;
  FindEach(text, find, found);
  Text out;
  out.reserve(text.size() - found.size() * find.size() + found.size() * with.size());
  std::size_t from = 0;
  for (const std::size_t at : found) {
    out.append(text.substr(from, at - from)).append(with);
    from = at + find.size();
  }
  out.append(text.substr(from));
  return out;
}

bool SameName(TextView a, TextView b) {
  const auto fold = [](char16_t c) { return (c >= u'a' && c <= u'z') ? c - u'a' + u'A' : c; };
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(),
                    [&](char16_t x, char16_t y) { return fold(x) == fold(y); });
}

bool Like(TextView text, TextView pattern) {
  // Greedy match with one backtrack point per '*': linear in practice.
  std::size_t t = 0, p = 0;
  std::size_t star = TextView::npos, mark = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == u'*') {
      star = p++;
      mark = t;
    } else if (p < pattern.size() && pattern[p] == text[t]) {
      ++p;
      ++t;
    } else if (star != TextView::npos) {
      p = star + 1;
      t = ++mark;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == u'*') ++p;
  return p == pattern.size();
}

}  // namespace vb
