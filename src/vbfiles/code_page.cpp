// Code pages as two tables built once from the system's converter: every
// character of the page checked to be written back with its own bytes.
#include "vbfiles/code_page.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>

#if __has_include(<iconv.h>)
#include <iconv.h>
#define TESSALY_HAS_ICONV 1
#endif

namespace vbfiles {
namespace {

constexpr char16_t kByteEscape = 0xF700;

bool IsEscape(char16_t c) { return c >= kByteEscape && c <= kByteEscape + 0xFF; }

struct Table {
  std::array<bool, 256> lead{};
  std::array<char16_t, 256> single{};                  // 0: no character
  std::vector<char16_t> pairs;                         // by lead * 256 + trail; 0: no character
  std::unordered_map<char16_t, std::uint16_t> encode;  // one byte below 0x100
};

#if defined(TESSALY_HAS_ICONV)

// One character through iconv: the UTF-16 unit `bytes` decode to, when they
// decode to exactly one and it encodes back to the same bytes; else 0.
class Converter {
 public:
  explicit Converter(const std::string& name)
      : to_text_(iconv_open("UTF-16LE", name.c_str())),
        to_bytes_(iconv_open(name.c_str(), "UTF-16LE")) {}
  ~Converter() {
    if (to_text_ != kNone) iconv_close(to_text_);
    if (to_bytes_ != kNone) iconv_close(to_bytes_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  bool Ok() const { return to_text_ != kNone && to_bytes_ != kNone; }

  char16_t RoundTrip(std::string bytes) {
    char out[8];
    if (Run(to_text_, bytes, out, sizeof out) != 2) return 0;
    const auto unit = static_cast<char16_t>(static_cast<unsigned char>(out[0]) |
                                            (static_cast<unsigned char>(out[1]) << 8));
    char back[8];
    const auto size = Run(to_bytes_, std::string(out, 2), back, sizeof back);
    return std::string(back, size) == bytes ? unit : 0;
  }

 private:
  static inline const iconv_t kNone = reinterpret_cast<iconv_t>(-1);

  static std::size_t Run(iconv_t cd, std::string in, char* out, std::size_t room) {
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
    char* in_at = in.data();
    std::size_t in_left = in.size();
    char* out_at = out;
    std::size_t out_left = room;
    if (iconv(cd, &in_at, &in_left, &out_at, &out_left) == static_cast<std::size_t>(-1) ||
        in_left != 0)
      return 0;
    return room - out_left;
  }

  iconv_t to_text_;
  iconv_t to_bytes_;
};

std::unique_ptr<Table> BuildTable(int number) {
  Converter converter("CP" + std::to_string(number));
  if (!converter.Ok()) return nullptr;
  auto table = std::make_unique<Table>();
  table->pairs.assign(65536, 0);
  for (int byte = 0x81; byte <= 0xFE; ++byte) {
    table->lead[byte] = number == 932 ? (byte <= 0x9F || (byte >= 0xE0 && byte <= 0xFC)) : true;
  }
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    if (table->lead[byte]) {
      for (int trail = 0x40; trail <= 0xFE; ++trail) {
        const char16_t c = converter.RoundTrip({static_cast<char>(byte), static_cast<char>(trail)});
        if (c == 0 || IsEscape(c)) continue;
        table->pairs[byte * 256 + trail] = c;
        table->encode.emplace(c, static_cast<std::uint16_t>(byte * 256 + trail));
      }
    } else if (const char16_t c = converter.RoundTrip(std::string(1, static_cast<char>(byte)));
               c != 0 && !IsEscape(c)) {
      table->single[byte] = c;
      table->encode.emplace(c, static_cast<std::uint16_t>(byte));
    }
  }
  return table;
}

#endif

constexpr int kDoubleBytePages[] = {932, 936, 949, 950};

const Table* TableFor(int number) {
#if defined(TESSALY_HAS_ICONV)
  static std::mutex mutex;
  static std::map<int, std::unique_ptr<Table>> tables;
  std::lock_guard lock(mutex);
  auto it = tables.find(number);
  if (it == tables.end()) it = tables.emplace(number, BuildTable(number)).first;
  return it->second.get();
#else
  (void)number;
  return nullptr;
#endif
}

}  // namespace

std::optional<CodePage> CodePage::FromNumber(int number) {
  if (number == 1252) return CodePage();
  for (const int page : kDoubleBytePages) {
    if (page == number && TableFor(number) != nullptr) return CodePage(number);
  }
  return std::nullopt;
}

std::vector<int> CodePage::Supported() {
  std::vector<int> numbers{1252};
  for (const int page : kDoubleBytePages) {
    if (TableFor(page) != nullptr) numbers.push_back(page);
  }
  return numbers;
}

bool CodePage::IsLeadByte(unsigned char byte) const {
  const Table* found = number_ == 1252 ? nullptr : TableFor(number_);
  return found != nullptr && found->lead[byte];
}

vb::Text CodePage::Decode(std::string_view bytes) const {
  const Table* found = number_ == 1252 ? nullptr : TableFor(number_);
  if (found == nullptr) return vb::FromCp1252(bytes);  // only 1252 is made without a table
  const Table& table = *found;
  vb::Text text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (byte < 0x80) {
      text.push_back(byte);
      continue;
    }
    if (table.lead[byte] && i + 1 < bytes.size()) {
      const auto trail = static_cast<unsigned char>(bytes[i + 1]);
      if (const char16_t c = table.pairs[byte * 256 + trail]; c != 0) {
        text.push_back(c);
        ++i;
        continue;
      }
      // A pair the page writes otherwise (or not at all) stays two bytes.
      if (trail >= 0x40 && trail != 0x7F && trail != 0xFF) {
        text.push_back(static_cast<char16_t>(kByteEscape + byte));
        text.push_back(static_cast<char16_t>(kByteEscape + trail));
        ++i;
        continue;
      }
    }
    text.push_back(table.single[byte] != 0 ? table.single[byte]
                                           : static_cast<char16_t>(kByteEscape + byte));
  }
  return text;
}

std::string CodePage::Encode(vb::TextView text) const {
  std::string bytes;
  EncodeTo(text, bytes);
  return bytes;
}

void CodePage::EncodeTo(vb::TextView text, std::string& bytes) const {
  // Most lines of project files are ASCII, the same bytes in every page.
  if (std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x80; })) {
    const std::size_t at = bytes.size();
    bytes.resize(at + text.size());
    std::copy(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    return;
  }
  const Table* found = number_ == 1252 ? nullptr : TableFor(number_);
  if (found == nullptr) {
    bytes += vb::ToCp1252(text);
    return;
  }
  const Table& table = *found;
  bytes.reserve(bytes.size() + text.size());
  for (const char16_t c : text) {
    if (c < 0x80 || IsEscape(c)) {
      bytes.push_back(static_cast<char>(c & 0xFF));
      continue;
    }
    const auto it = table.encode.find(c);
    if (it == table.encode.end()) {
      bytes.push_back('?');
    } else if (it->second > 0xFF) {
      bytes.push_back(static_cast<char>(it->second >> 8));
      bytes.push_back(static_cast<char>(it->second & 0xFF));
    } else {
      bytes.push_back(static_cast<char>(it->second));
    }
  }
}

namespace {

// The number after "Charset =" in a font block, or -1.
int NamedCharset(std::string_view text) {
  constexpr std::string_view kKey = "Charset";
  for (auto at = text.find(kKey); at != std::string_view::npos; at = text.find(kKey, at + 1)) {
    std::size_t i = at + kKey.size();
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    if (i >= text.size() || text[i] != '=') continue;
    ++i;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    int number = 0;
    std::size_t digits = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9' && digits < 4; ++i, ++digits) {
      number = number * 10 + (text[i] - '0');
    }
    if (digits > 0) return number;
  }
  return -1;
}

// How many two-byte characters of the page `text` holds; nullopt when a byte
// above 127 is no part of a character.
std::optional<std::size_t> PairsIn(const CodePage& page, std::string_view text) {
  const vb::Text decoded = page.Decode(text);
  if (std::any_of(decoded.begin(), decoded.end(), IsEscape)) return std::nullopt;
  return text.size() - decoded.size();  // each pair is one character
}

}  // namespace

CodePage DetectCodePage(const std::vector<std::string_view>& texts) {
  static constexpr std::pair<int, int> kCharsets[] = {
      {128, 932}, {134, 936}, {129, 949}, {136, 950}};
  bool western = false;
  for (const auto text : texts) {
    const int charset = NamedCharset(text);
    if (charset == 0) western = true;
    for (const auto& [set, number] : kCharsets) {
      if (set == charset) {
        if (const auto page = CodePage::FromNumber(number)) return *page;
      }
    }
  }
  if (western) return {};
  const auto japanese = CodePage::FromNumber(932);
  if (!japanese) return {};
  std::size_t pairs = 0;
  for (const auto text : texts) {
    const auto found = PairsIn(*japanese, text);
    if (!found) return {};
    pairs += *found;
  }
  return pairs > 0 ? *japanese : CodePage();
}

}  // namespace vbfiles
