#pragma once

#include <QHash>
#include <QString>
#include <QTextDocument>
#include <memory>
#include <vector>

// A help page as a chapter of a book: its text without the ways through the help, laid out on pages.

namespace tessara {

// The page number on which each chapter of a book begins, by the chapter's file.
using ChapterStarts = QHash<QString, int>;

struct Heading {
  QString text;
  int page = 0;  // of the chapter, counted from 0
};

class Chapter {
 public:
  // Reads a page of the Help folder; false when it cannot be read.
  bool Read(const QString& help_folder, const QString& file);

  // Lays the text out on pages of that size, in pixels of 1/96 inch. A link to another chapter of the book is followed
  // by the number of its first page.
  void LayOut(const QSizeF& page, const ChapterStarts& starts);

  const QString& file() const { return file_; }
  const QString& title() const { return title_; }
  int pages() const { return document_->pageCount(); }
  QTextDocument& document() const { return *document_; }
  // The sections, each with the page that it begins on.
  std::vector<Heading> Sections() const;

 private:
  QString TextWithPageNumbers(const ChapterStarts& starts) const;

  QString help_folder_;
  QString file_;
  QString title_;
  QString body_;
  QString style_;
  std::unique_ptr<QTextDocument> document_;
};

// A document of a book: its styles, its figures as drawings, its type.
std::unique_ptr<QTextDocument> MakeDocument(const QString& help_folder, const QString& style);
QString StyleOfPages(const QString& help_folder);

}  // namespace tessara
