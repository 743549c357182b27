#include "book.h"

#include <QFile>
#include <QTextStream>

#include "reference/handbook_topics.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

QStringList PagesOfTopics(const QString& help_folder, const QString& prefix) {
  QStringList pages;
  for (const HandbookTopic& topic : ReadHelpIndex(PathFromQt(help_folder))) {
    const QString page = ToQt(topic.page);
    if (page.startsWith(prefix)) pages += page + ".html";
  }
  return pages;
}

}  // namespace

Book ReadBook(const QString& file, const QString& help_folder, QString& error) {
  QFile source(file);
  if (!source.open(QIODevice::ReadOnly)) {
    error = file + " cannot be read";
    return {};
  }
  Book book;
  QTextStream lines(&source);
  while (!lines.atEnd()) {
    const QString line = lines.readLine();
    const QString word = line.section(' ', 0, 0);
    const QString rest = line.section(' ', 1);
    if (word == "title") {
      book.title = rest;
    } else if (word == "page") {
      book.pages += rest;
    } else if (word == "topics") {
      book.pages += PagesOfTopics(help_folder, rest);
    } else if (!line.isEmpty()) {
      error = file + " has a line that is none of a book: " + line;
      return {};
    }
  }
  if (book.title.isEmpty() || book.pages.isEmpty()) error = file + " names no title or no pages";
  return book;
}

}  // namespace tessara
