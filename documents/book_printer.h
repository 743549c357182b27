#pragma once

#include <QString>

#include "book.h"

namespace tessara {

// Writes a book as a PDF document: a title page, the contents with their page numbers, and the chapters, each on a new
// page. False, with `error` saying why, when a page is missing or the file cannot be written.
bool PrintBook(const Book& book, const QString& help_folder, const QString& pdf, QString& error);

}  // namespace tessara
