#pragma once

#include <QDialog>
#include <QString>
#include <string_view>

class QPushButton;
class QTextEdit;

/// A modal box titled `caption` with one text and one button, "Aceptar". It is dismissed by its
/// button, Return, Escape, its close box, and by whoever destroys its window. The text can be
/// selected and copied (Ctrl+C copies all of it where nothing is selected). Both are plain text,
/// bytes as cp1252::toUtf8 reads them.
class MessageBoxForm : public QDialog {
 public:
  /// `owner`: the form that the box blocks; may be null.
  MessageBoxForm(QWidget* owner, std::string_view text, std::string_view caption);
  ~MessageBoxForm() override;

  /// The text as it was given, without what helps it to break into lines.
  QString text() const { return text_; }

  QTextEdit* message;
  QPushButton* button;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString text_;
};

/// Shows such a box over the form in front and returns when it has been dismissed. Needs a
/// QApplication.
void showMessageBox(std::string_view text, std::string_view caption);

/// The text of the box that is open; empty without one. For whoever ends the process under it.
std::string_view textOfOpenBox();
