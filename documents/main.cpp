#include <QGuiApplication>
#include <cstdio>

#include "book_printer.h"

// Makes a document of the Documentation menu from the help pages: tessara-documents BOOK HELP-FOLDER PDF

int main(int argc, char* argv[]) {
  if (argc != 4) {
    std::fputs("Usage: tessara-documents BOOK HELP-FOLDER PDF\n", stderr);
    return 2;
  }
  const QGuiApplication application(argc, argv);
  const QString help_folder = QString::fromLocal8Bit(argv[2]);
  QString error;
  const tessara::Book book = tessara::ReadBook(QString::fromLocal8Bit(argv[1]), help_folder, error);
  if (error.isEmpty()) tessara::PrintBook(book, help_folder, QString::fromLocal8Bit(argv[3]), error);
  if (error.isEmpty()) return 0;
  std::fprintf(stderr, "tessara-documents: %s\n", error.toLocal8Bit().constData());
  return 1;
}
