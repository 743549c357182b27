#include "batch/batch_platform.h"

#include <cctype>
#include <utility>

#include "batch/visible_text.h"
#include "batch/words/script_line.h"
#include "platform/files.h"
#include "platform/module.h"

namespace tessara {
namespace {

// Pages are bytes of the code page, each ended by a zero byte. Yields 0 when the file was written.
using WritePdfRoutine = int(const char* utf8_path, const char* const* pages, int page_count);

WritePdfRoutine* FindPdfRoutine() {
  return reinterpret_cast<WritePdfRoutine*>(FindModuleRoutine("tessara-print", "TessaraWritePdf"));
}

bool WritePdf(const Path& path, const std::vector<std::string>& pages) {
  WritePdfRoutine* write = FindPdfRoutine();
  if (!write) return false;
  std::vector<const char*> starts;
  starts.reserve(pages.size());
  for (const std::string& page : pages) starts.push_back(page.c_str());
  return write(PathToUtf8(path).c_str(), starts.data(), static_cast<int>(starts.size())) == 0;
}

bool WritePlainText(const Path& path, const std::vector<std::string>& pages) {
  SafeFileWriter file(path);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (i > 0) file.Write("\f");
    file.Write(pages[i]);
  }
  return file.Commit() == WriteResult::kWritten;
}

std::optional<ChosenFile> Take(std::optional<Path>& path) {
  if (!path) return std::nullopt;
  const Path taken = *std::exchange(path, std::nullopt);
  return ChosenFile{taken, HeldText(PathToUtf8(taken.filename()))};
}

}  // namespace

std::optional<ChosenFile> BatchPlatform::AskOpenFile(const FileDialog&) { return Take(answers.open_path); }

std::optional<ChosenFile> BatchPlatform::AskSaveFile(const FileDialog&) {
  if (!answers.save_path) asked_for_name = true;
  return Take(answers.save_path);
}

std::optional<PrintChoice> BatchPlatform::AskPrint(const PrintDialog&) {
  if (!answers.print_path) return std::nullopt;
  return PrintChoice{};
}

Answer BatchPlatform::ShowMessage(const MessageBox& box) {
  if (box.tone == Tone::kRefusal || box.tone == Tone::kWarning) refused = true;
  stream_.PrintMessage(TerminalText(box.title + ": " + box.text));
  switch (box.buttons) {
    case Buttons::kOk:
    case Buttons::kOkCancel:
      return Answer::kOk;
    case Buttons::kYesNo:
    case Buttons::kYesNoCancel:
      break;
  }
  return answers.question;
}

bool BatchPlatform::PrintPages(const std::vector<std::string>& pages) {
  if (!answers.print_path) return false;
  const Path path = *std::exchange(answers.print_path, std::nullopt);
  return IsPdfPath(path) ? WritePdf(path, pages) : WritePlainText(path, pages);
}

DateTime BatchPlatform::Now() { return LocalNow(); }

std::uint64_t BatchPlatform::Entropy() { return seed_ ? *seed_ : SystemEntropy(); }

Path BatchPlatform::ProgramFolder() { return FindProgramFolder(); }

Path BatchPlatform::DocumentsFolder() { return UserDocumentsFolder(); }

bool IsPdfPath(const Path& path) {
  std::string ending = PathToUtf8(path.extension());
  for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return ending == ".pdf";
}

bool CanWritePdf() { return FindPdfRoutine() != nullptr; }

}  // namespace tessara
