#include "batch/batch_platform.h"

#include "batch/visible_text.h"
#include "platform/files.h"
#include "platform/module.h"
#include "platform/print_module.h"

namespace tessara {
namespace {

PdfRoutine* FindPdfRoutine() { return reinterpret_cast<PdfRoutine*>(FindModuleRoutine(kPrintModule, kPdfRoutine)); }

}  // namespace

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
  return answer;
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

bool CanWritePdf() { return FindPdfRoutine() != nullptr; }

}  // namespace tessara
