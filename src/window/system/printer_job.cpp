#include "window/system/printer_job.h"

#include <QBuffer>
#include <QByteArray>
#include <QPdfWriter>
#include <QPrinter>
#include <string_view>

#include "platform/safe_file_writer.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

// Whether what is painted goes to a PDF file of the printer's choice.
bool PrintsToFile(const QPrinter& printer) {
  return printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty();
}

}  // namespace

bool PaintOnPrinter(QPrinter& printer, const std::function<bool(QPagedPaintDevice&)>& paint) {
  if (!PrintsToFile(printer)) return printer.isValid() && paint(printer) && printer.printerState() != QPrinter::Error;
  QByteArray pdf;
  {
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageLayout(printer.pageLayout());
    writer.setResolution(printer.resolution());
    writer.setTitle(printer.docName());
    writer.setCreator("Tessara " TESSARA_VERSION);
    if (!paint(writer)) return false;
  }
  const std::string_view bytes(pdf.constData(), static_cast<std::size_t>(pdf.size()));
  return WriteWholeFile(PathFromQt(printer.outputFileName()), bytes) == WriteResult::kWritten;
}

}  // namespace tessara
