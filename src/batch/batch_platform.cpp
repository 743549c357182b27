#include "batch/batch_platform.h"

#include <cctype>
#include <utility>

#include "batch/visible_text.h"
#include "batch/words/script_line.h"
#include "platform/files.h"
#include "platform/module.h"
#include "platform/print_module.h"

namespace tessara {
namespace {

PdfRoutine* FindPdfRoutine() { return reinterpret_cast<PdfRoutine*>(FindModuleRoutine(kPrintModule, kPdfRoutine)); }

bool WritePlainText(const Path& path, const PrintJob& job) {
  SafeFileWriter file(path);
  bool first = true;
  for (const Sheet& sheet : job.sheets) {
    if (!std::exchange(first, false)) file.Write("\f");
    file.Write(sheet.text);
  }
  return file.Commit() == WriteResult::kWritten;
}

}  // namespace

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

bool BatchPlatform::Print(const PrintJob& job) {
  if (!answers.print_path) return false;
  const Path path = *std::exchange(answers.print_path, std::nullopt);
  return IsPdfPath(path) ? WritePdf(job, path) : WritePlainText(path, job);
}

bool BatchPlatform::WritePdf(const PrintJob& job, const Path& path) {
  PdfRoutine* make_pdf = FindPdfRoutine();
  std::string pdf;
  return make_pdf && make_pdf(job, pdf) && WriteWholeFile(path, pdf) == WriteResult::kWritten;
}

void BatchPlatform::ShowNote(const std::string& text) {
  stream_.PrintMessage("tessara-cli: note: " + TerminalText(text));
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
