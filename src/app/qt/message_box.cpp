#include "app/qt/message_box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>

#include "core/cp1252.h"

namespace {

QString decoded(std::string_view text) { return QString::fromStdString(cp1252::toUtf8(text)); }

/// Lines break at blanks and slashes. A name that is longer than a line gets further places to
/// break, which have no width: it would be cut off at the edge of the box.
QString breakable(const QString& text) {
  constexpr int kLongestWord = 60;
  constexpr int kPiece = 10;
  constexpr QChar kBreakHere(0x200B);
  QString result;
  for (qsizetype start = 0; start < text.size();) {
    qsizetype end = start;
    while (end < text.size() && text[end] != ' ' && text[end] != '/' && text[end] != '\n') ++end;
    const bool isLong = end - start > kLongestWord;
    for (qsizetype i = start; i < end; ++i) {
      if (isLong && i > start && (i - start) % kPiece == 0 && !text[i].isLowSurrogate())
        result += kBreakHere;
      result += text[i];
    }
    if (end < text.size()) result += text[end++];
    start = end;
  }
  return result;
}

/// The form the box belongs to: a box without one could end up behind the form that it blocks.
QWidget* formInFront() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* form : QApplication::topLevelWidgets()) {
    if (form->isVisible()) return form;
  }
  return nullptr;
}

/// A short text must not make the box so narrow that its caption is cut.
void makeRoomForCaption(QMessageBox& box) {
  constexpr int kFrame = 120;  // icon and close box, as wide as frames have them
  const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + kFrame;
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
  }
}

}  // namespace

void showMessageBox(std::string_view text, std::string_view caption) {
  QMessageBox box(formInFront());
  box.setTextFormat(Qt::PlainText);
  box.setText(breakable(decoded(text)));
  box.setWindowTitle(decoded(caption));
  box.setStandardButtons(QMessageBox::Ok);
  box.button(QMessageBox::Ok)->setText("Aceptar");
  box.button(QMessageBox::Ok)->setIcon({});
  makeRoomForCaption(box);
  box.setWindowModality(Qt::ApplicationModal);
  box.exec();
}
