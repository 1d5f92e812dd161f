#include "app/qt/message_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <QTimer>
#include <functional>

#include "app/desktop/forms.h"
#include "app/qt/drawn_form.h"
#include "support/temporary_folder.h"

namespace {

constexpr std::string_view kCaption = "Se ha producido un error";

/// Shows a box and has `inspect` look at it once it is up; `inspect` is to dismiss it.
void whileShown(std::string_view text, std::string_view caption,
                const std::function<void(MessageBoxForm&)>& inspect) {
  bool inspected = false;
  QTimer::singleShot(0, [&] {
    auto* box = dynamic_cast<MessageBoxForm*>(QApplication::activeModalWidget());
    ASSERT_NE(nullptr, box);
    inspected = true;
    inspect(*box);
    if (box->isVisible()) {
      ADD_FAILURE() << "the box has not been dismissed";
      box->accept();
    }
  });
  showMessageBox(text, caption);
  EXPECT_TRUE(inspected) << "the box did not wait";
  EXPECT_EQ(nullptr, QApplication::activeModalWidget());
}

void press(QWidget& box, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QKeyEvent event(QEvent::KeyPress, key, modifiers);
  QApplication::sendEvent(&box, &event);
}

/// The lines in which the box shows its text, without what helps to break it.
std::vector<std::string> shownLines(const MessageBoxForm& box) {
  std::vector<std::string> lines;
  const QTextBlock block = box.message->document()->begin();
  for (int i = 0; i < block.layout()->lineCount(); ++i) {
    const QTextLine line = block.layout()->lineAt(i);
    QString text = block.text().mid(line.textStart(), line.textLength());
    lines.push_back(text.remove(QChar(0x200B)).toStdString());
  }
  return lines;
}

/// The place of what is inside on the box.
QRect placeOf(const MessageBoxForm& box, const QWidget& inside) {
  return {inside.mapTo(&box, QPoint(0, 0)), inside.size()};
}

}  // namespace

TEST(MessageBox, HasItsCaptionAndOneButton) {
  whileShown("No hay memoria suficiente", kCaption, [](MessageBoxForm& box) {
    EXPECT_EQ("Se ha producido un error", box.windowTitle());
    EXPECT_EQ("No hay memoria suficiente", box.text());
    EXPECT_EQ(Qt::ApplicationModal, box.windowModality());
    ASSERT_EQ(1, box.findChildren<QPushButton*>().size());
    EXPECT_EQ("Aceptar", box.button->text());
    EXPECT_TRUE(box.button->icon().isNull());
    box.button->click();
  });
}

TEST(MessageBox, EveryWayToCloseItDismissesIt) {
  whileShown("a", "b", [](MessageBoxForm& box) { press(box, Qt::Key_Escape); });
  whileShown("a", "b", [](MessageBoxForm& box) { press(box, Qt::Key_Return); });
  whileShown("a", "b", [](MessageBoxForm& box) { press(box, Qt::Key_Enter); });
  whileShown("a", "b", [](MessageBoxForm& box) { box.close(); });
}

TEST(MessageBox, AClickOnItsTextTakesNoKeyFromIt) {
  whileShown("a", "b", [](MessageBoxForm& box) {
    press(*box.message, Qt::Key_Return);
    EXPECT_FALSE(box.isVisible());
  });
  whileShown("a", "b", [](MessageBoxForm& box) {
    press(*box.message, Qt::Key_Escape);
    EXPECT_FALSE(box.isVisible());
  });
}

TEST(MessageBox, TakesMarkupAsPlainText) {
  const char* const text = "<b>casa</b> &amp; & <a href=\"x\">%s\n</a>";
  whileShown(text, "b", [&](MessageBoxForm& box) {
    EXPECT_EQ(text, box.text());
    box.accept();
  });
}

TEST(MessageBox, DecodesWindows1252AndUtf8) {
  const std::string text = toCp1252("Área de planta no válida: 50 €. ") + "años ñ.tip";
  whileShown(text, toCp1252("Información"), [](MessageBoxForm& box) {
    EXPECT_EQ("Área de planta no válida: 50 €. años ñ.tip", box.text());
    EXPECT_EQ("Información", box.windowTitle());
    box.accept();
  });
}

TEST(MessageBox, AnEmptyTextIsShownAllTheSame) {
  whileShown("", kCaption, [](MessageBoxForm& box) {
    EXPECT_EQ("", box.text());
    EXPECT_EQ("Se ha producido un error", box.windowTitle());
    box.accept();
  });
}

TEST(MessageBox, IsWideEnoughForItsCaption) {
  whileShown("a", kCaption, [](MessageBoxForm& box) {
    EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(box.windowTitle()) + 100);
    box.accept();
  });
}

TEST(MessageBox, HasOneFontWithTheForm) {
  whileShown("a", "b", [](MessageBoxForm& box) {
    const QFont form = toQt(progress_form::kStageFont, progress_form::kDpi);
    for (const QWidget* part :
         {static_cast<QWidget*>(box.message), static_cast<QWidget*>(box.button)}) {
      EXPECT_EQ(form.families(), part->font().families());
      EXPECT_EQ(form.pixelSize(), part->font().pixelSize());
    }
    box.accept();
  });
}

TEST(MessageBox, ItsMarginsAreEven) {
  for (const char* shown :
       {"a", "Error al abrir fichero de escritura: /home/ana/no-existe/a.bdl"}) {
    whileShown(shown, kCaption, [](MessageBoxForm& box) {
      const QRect text = placeOf(box, *box.message);
      const QRect button = placeOf(box, *box.button);
      const int margin = text.left();
      EXPECT_GE(margin, 16);
      EXPECT_LE(margin, 20);
      EXPECT_EQ(margin, text.top());
      EXPECT_EQ(margin, box.width() - text.right() - 1);
      EXPECT_EQ(margin, button.top() - text.bottom() - 1);
      EXPECT_EQ(margin, box.width() - button.right() - 1);
      EXPECT_EQ(margin, box.height() - button.bottom() - 1);
      box.accept();
    });
  }
}

TEST(MessageBox, IsOfAGoodWidthForPaths) {
  const std::string path =
      "/home/ana/expedientes/2024/bloque-de-viviendas/calle_mayor_12/salida.bdl";
  whileShown("Error al abrir fichero de escritura: " + path, kCaption, [](MessageBoxForm& box) {
    EXPECT_GE(box.width(), 400);
    EXPECT_LE(box.width(), 500);
    box.accept();
  });
}

TEST(MessageBox, PathsBreakBehindTheirSeparatorsFirst) {
  for (const char separator : {'/', '\\', '-', '_', '.'}) {
    SCOPED_TRACE(separator);
    std::string path = "/";
    for (int i = 0; i < 20; ++i) path += std::string(13, 'x') + separator;
    whileShown(path + "bdl", kCaption, [&](MessageBoxForm& box) {
      const std::vector<std::string> lines = shownLines(box);
      ASSERT_GT(lines.size(), 1U);
      for (std::size_t i = 0; i + 1 < lines.size(); ++i) EXPECT_EQ(separator, lines[i].back());
      EXPECT_EQ(path + "bdl", box.text().toStdString());
      box.accept();
    });
  }
}

TEST(MessageBox, NumbersAndPatternsStayInOnePiece) {
  for (const char* word : {"*.tip", "72.9", ">=4.5"}) {
    std::string text;
    for (int i = 0; i < 40; ++i) text += std::string(word) + " ";
    whileShown(text, kCaption, [&](MessageBoxForm& box) {
      const std::vector<std::string> lines = shownLines(box);
      ASSERT_GT(lines.size(), 1U);
      for (const std::string& line : lines) EXPECT_TRUE(line.starts_with(word)) << line;
      box.accept();
    });
  }
}

TEST(MessageBox, ALongNameIsWrappedNotCut) {
  const std::string path = "/" + std::string(500, 'x') + "/" + std::string(500, 'y') + ".bdl";
  whileShown("Error al escribir fichero: " + path, "b", [&](MessageBoxForm& box) {
    EXPECT_LE(box.width(), 500);
    std::string shown;
    for (const std::string& line : shownLines(box)) shown += line;
    EXPECT_EQ("Error al escribir fichero: " + path, shown);
    // All of its lines are within the box.
    EXPECT_GE(box.message->height(), static_cast<int>(box.message->document()->size().height()));
    EXPECT_EQ("Error al escribir fichero: " + path, box.text().toStdString());
    box.accept();
  });
}

TEST(MessageBox, ATextHigherThanTheScreenScrolls) {
  const std::string path = "/" + std::string(20000, 'x');
  whileShown(path, "b", [&](MessageBoxForm& box) {
    EXPECT_LE(box.height(), box.screen()->availableGeometry().height());
    EXPECT_EQ(Qt::ScrollBarAlwaysOn, box.message->verticalScrollBarPolicy());
    box.accept();
  });
}

TEST(MessageBox, WhatIsCopiedIsWhatWasSaid) {
  const std::string text =
      "Error al escribir fichero: /home/ana/una-casa_de_dos.plantas/salida.bdl";
  whileShown(text, "b", [&](MessageBoxForm& box) {
    QApplication::clipboard()->clear();
    press(box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(text, QApplication::clipboard()->text().toStdString()) << "nothing selected: all";

    EXPECT_TRUE(box.message->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    QTextCursor cursor = box.message->textCursor();
    cursor.setPosition(27);
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    box.message->setTextCursor(cursor);
    press(box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(text.substr(27), QApplication::clipboard()->text().toStdString());
    box.accept();
  });
}

TEST(MessageBox, ItsTextIsKnownWhileItIsOpen) {
  EXPECT_EQ("", textOfOpenBox());
  whileShown("una cosa", "b", [](MessageBoxForm& box) {
    EXPECT_EQ("una cosa", textOfOpenBox());
    box.accept();
  });
  EXPECT_EQ("", textOfOpenBox());
}

TEST(MessageBox, StandsInTheMiddleOfTheForm) {
  QWidget form;
  form.setGeometry(150, 120, 400, 300);
  form.show();
  whileShown("a", kCaption, [&](MessageBoxForm& box) {
    const QPoint offset = box.frameGeometry().center() - form.frameGeometry().center();
    EXPECT_LE(offset.manhattanLength(), 2);
    box.accept();
  });
}

TEST(MessageBox, StandsInTheMiddleOfTheScreenWithoutAForm) {
  whileShown("a", kCaption, [&](MessageBoxForm& box) {
    const QPoint offset = box.frameGeometry().center() - box.screen()->availableGeometry().center();
    EXPECT_LE(offset.manhattanLength(), 2);
    box.accept();
  });
}
