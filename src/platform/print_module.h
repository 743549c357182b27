#pragma once

#include <string>

#include "platform/printing.h"

// The module that makes PDF files for a program without a window: loaded only when one is asked for, and built from the
// same sources as the program.

namespace tessara {

inline constexpr const char* kPrintModule = "tessara-print";
inline constexpr const char* kPdfRoutine = "TessaraMakePdf";

// Puts the bytes of a PDF file with the sheets into `pdf`. False when they cannot be made.
using PdfRoutine = bool(const PrintJob& job, std::string& pdf);

}  // namespace tessara
