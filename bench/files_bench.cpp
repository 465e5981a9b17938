// Speed of opening and saving a large form and its .frx, each beside one
// plain copy of the same bytes, so the figures read as "so many copies".
// Bytes processed are the .frm and .frx read plus written: a form of many
// controls with fonts and side-file strings, a side file of pictures.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "vbfiles/file_lines.hpp"
#include "vbfiles/frm_file.hpp"
#include "workbench/project_loader.hpp"
#include "workbench/project_saver.hpp"

namespace {

namespace fs = std::filesystem;

constexpr int kControls = 3000;
constexpr std::size_t kPictureBytes = 4 << 20;

// A project folder holding one large form: controls in frames, a font block
// per control, a caption kept in the .frx every so often, and code.
class LargeForm {
 public:
  LargeForm()
      : folder_(fs::temp_directory_path() /
                ("tessaly-bench-" + std::to_string(std::random_device{}()))) {
    fs::create_directories(folder_);
    std::string frx(8, '\0');  // a picture's count, then its bytes
    frx[0] = static_cast<char>(kPictureBytes & 0xFF);
    frx[1] = static_cast<char>((kPictureBytes >> 8) & 0xFF);
    frx[2] = static_cast<char>((kPictureBytes >> 16) & 0xFF);
    frx.resize(4);
    std::mt19937 random(7);
    for (std::size_t i = 0; i < kPictureBytes; ++i) frx.push_back(static_cast<char>(random()));
    std::string frm =
        "VERSION 5.00\r\nBegin VB.Form frmBig \r\n   Caption         =   \"Big\"\r\n"
        "   ClientHeight    =   9000\r\n   ClientWidth     =   12000\r\n"
        "   Picture         =   \"frmBig.frx\":0000\r\n";
    for (int i = 0; i < kControls; ++i) {
      const std::string n = std::to_string(i);
      std::string caption = "\"Caption " + n + "\"";
      if (i % 10 == 0) {
        const std::string text = "Line one of " + n + "\r\nLine two";
        char offset[16];
        std::snprintf(offset, sizeof offset, "%04X", static_cast<unsigned>(frx.size()));
        for (int b = 0; b < 4; ++b)
          frx.push_back(static_cast<char>((text.size() >> (8 * b)) & 0xFF));
        frx += text;
        caption = std::string("$\"frmBig.frx\":") + offset;
      }
      frm += "   Begin VB.CommandButton cmd" + n + " \r\n      Caption         =   " + caption +
             "\r\n      BeginProperty Font \r\n         Name            =   \"Tahoma\"\r\n"
             "         Size            =   8.25\r\n         Charset         =   0\r\n"
             "         Weight          =   700\r\n      EndProperty\r\n"
             "      Height          =   375\r\n      Left            =   " +
             std::to_string(i % 100 * 120) + "\r\n      TabIndex        =   " + n +
             "\r\n      Top             =   " + std::to_string(i / 100 * 400) +
             "\r\n      Width           =   1215\r\n   End\r\n";
    }
    frm += "End\r\nAttribute VB_Name = \"frmBig\"\r\nOption Explicit\r\n";
    for (int i = 0; i < kControls; ++i) {
      frm += "Private Sub cmd" + std::to_string(i) +
             "_Click()\r\n    MsgBox \"clicked\"\r\nEnd Sub\r\n";
    }
    Write(folder_ / "frmBig.frm", frm);
    Write(folder_ / "frmBig.frx", frx);
    Write(folder_ / "Big.vbp", "Type=Exe\r\nForm=frmBig.frm\r\nName=\"Big\"\r\n");
    bytes_ = frm.size() + frx.size();
  }
  ~LargeForm() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  LargeForm(const LargeForm&) = delete;
  LargeForm& operator=(const LargeForm&) = delete;

  const fs::path& Folder() const { return folder_; }
  std::size_t Bytes() const { return bytes_; }

  static void Write(const fs::path& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }

 private:
  fs::path folder_;
  std::size_t bytes_ = 0;
};

const LargeForm& Form() {
  static const LargeForm form;
  return form;
}

// The plain copy: both files read and written again, nothing understood.
void BM_PlainCopy(benchmark::State& state) {
  const auto& form = Form();
  for (auto _ : state) {
    for (const char* name : {"frmBig.frm", "frmBig.frx"}) {
      const std::string bytes = vbfiles::ReadWholeFile(form.Folder() / name);
      LargeForm::Write(form.Folder() / (std::string("copy-") + name), bytes);
    }
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * 2 * form.Bytes()));
}
BENCHMARK(BM_PlainCopy)->Unit(benchmark::kMillisecond);

// Opened into the workbench's model and turned back into files, which are
// written as the plain copy writes them.
void BM_OpenAndWrite(benchmark::State& state) {
  const auto& form = Form();
  for (auto _ : state) {
    const auto project = workbench::OpenProject(form.Folder() / "Big.vbp");
    for (const auto& [name, bytes] : workbench::ProjectFileBytes(*project)) {
      if (name != "Big.vbp") LargeForm::Write(form.Folder() / ("copy-" + name), bytes);
    }
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * 2 * form.Bytes()));
}
BENCHMARK(BM_OpenAndWrite)->Unit(benchmark::kMillisecond);

// The form file alone through its reader and writer (src/vbfiles), without
// the workbench's model: the part of the above the file library does.
void BM_FormParseAndWrite(benchmark::State& state) {
  const std::string bytes = vbfiles::ReadWholeFile(Form().Folder() / "frmBig.frm");
  for (auto _ : state) {
    const auto document = vbfiles::FrmDocument::Parse(bytes, u"frmBig.frm");
    benchmark::DoNotOptimize(document.Write());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * 2 * bytes.size()));
}
BENCHMARK(BM_FormParseAndWrite)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
