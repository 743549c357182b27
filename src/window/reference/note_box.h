#pragma once

#include <QPlainTextEdit>

namespace tessara {

// A box for a text of limited length, counted as the file holds it: a line end is two characters. What is beyond the
// limit is not taken, whether typed or pasted.
class NoteBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  NoteBox(int limit, QWidget* parent);

  // Puts a text into the box, whole.
  void ShowText(const QString& text);
  // The text with its no-break spaces, lines ended by LF.
  QString Text() const;
  // Characters of the file that the text takes.
  int Used() const;

 private:
  void KeepLimit();

  int limit_;
  int last_at_ = 0;     // of the latest change
  int last_added_ = 0;  // and how long what came in was
  bool cutting_ = false;
};

}  // namespace tessara
