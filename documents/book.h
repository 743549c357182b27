#pragma once

#include <QString>
#include <QStringList>

// A book: a title, and the help pages that are its chapters.

namespace tessara {

struct Book {
  QString title;
  QStringList pages;  // files of the Help folder
};

// Reads a file of lines "title TEXT", "page FILE" and "topics PREFIX", the last of which means the pages of the topic
// list whose names start so, in the order of the list. On a failure the book is empty and `error` says why.
Book ReadBook(const QString& file, const QString& help_folder, QString& error);

}  // namespace tessara
