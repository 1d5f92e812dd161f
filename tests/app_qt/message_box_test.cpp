#include "app/qt/message_box.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <functional>

#include "support/temporary_folder.h"

namespace {

/// Shows a box and has `inspect` look at it once it is up; `inspect` is to dismiss it.
void whileShown(std::string_view text, std::string_view caption,
                const std::function<void(QMessageBox&)>& inspect) {
  bool inspected = false;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
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

void press(QMessageBox& box, int key) {
  QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(&box, &event);
}

}  // namespace

TEST(MessageBox, HasItsCaptionAndOneButton) {
  whileShown("No hay memoria suficiente", "Se ha producido un error", [](QMessageBox& box) {
    EXPECT_EQ("Se ha producido un error", box.windowTitle());
    EXPECT_EQ("No hay memoria suficiente", box.text());
    EXPECT_EQ("", box.informativeText());
    EXPECT_EQ(QMessageBox::NoIcon, box.icon());
    EXPECT_TRUE(box.isModal());
    EXPECT_EQ(Qt::ApplicationModal, box.windowModality());
    ASSERT_EQ(1, box.buttons().size());
    EXPECT_EQ(QMessageBox::Ok, box.standardButton(box.buttons().front()));
    EXPECT_EQ("Aceptar", box.buttons().front()->text());
    box.buttons().front()->click();
  });
}

TEST(MessageBox, EveryWayToCloseItDismissesIt) {
  whileShown("a", "b", [](QMessageBox& box) { press(box, Qt::Key_Escape); });
  whileShown("a", "b", [](QMessageBox& box) { press(box, Qt::Key_Return); });
  whileShown("a", "b", [](QMessageBox& box) { box.close(); });
}

TEST(MessageBox, TakesMarkupAsPlainText) {
  const char* const text = "<b>casa</b> &amp; & <a href=\"x\">%s\n</a>";
  whileShown(text, "b", [&](QMessageBox& box) {
    EXPECT_EQ(Qt::PlainText, box.textFormat());
    EXPECT_EQ(text, box.text());
    const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
    ASSERT_NE(nullptr, label);
    EXPECT_EQ(Qt::PlainText, label->textFormat());
    EXPECT_EQ(text, label->text());
    box.accept();
  });
}

TEST(MessageBox, DecodesWindows1252AndUtf8) {
  const std::string text = toCp1252("Área de planta no válida: 50 €. ") + "años/ñ.tip";
  whileShown(text, toCp1252("Información"), [](QMessageBox& box) {
    EXPECT_EQ("Área de planta no válida: 50 €. años/ñ.tip", box.text());
    EXPECT_EQ("Información", box.windowTitle());
    box.accept();
  });
}

TEST(MessageBox, AnEmptyTextIsShownAllTheSame) {
  whileShown("", "Se ha producido un error", [](QMessageBox& box) {
    EXPECT_EQ("", box.text());
    EXPECT_EQ("Se ha producido un error", box.windowTitle());
    box.accept();
  });
}

TEST(MessageBox, IsWideEnoughForItsCaption) {
  whileShown("a", "Se ha producido un error", [](QMessageBox& box) {
    EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(box.windowTitle()) + 100);
    box.accept();
  });
}

TEST(MessageBox, ALongPathIsWrappedNotCut) {
  const std::string path = "/" + std::string(500, 'x') + "/" + std::string(500, 'y') + ".bdl";
  whileShown("Error al escribir fichero: " + path, "b", [&](QMessageBox& box) {
    EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
    const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
    ASSERT_NE(nullptr, label);
    // A thousand letters: as many lines as it takes are there.
    const int letters = label->width() / label->fontMetrics().horizontalAdvance('x');
    EXPECT_GE(label->height(), (1000 / (letters + 1)) * label->fontMetrics().height());
    EXPECT_LE(label->minimumSizeHint().width(), label->width());
    // Places to break have no width and are not part of the path.
    EXPECT_EQ("Error al escribir fichero: " + path, box.text().remove(QChar(0x200B)).toStdString());
    box.accept();
  });
}

TEST(MessageBox, AnOrdinaryPathStaysAsItIs) {
  const std::string path =
      "/home/ana/expedientes/2024/bloque de viviendas/calle-mayor-12/salida.bdl";
  whileShown(path, "b", [&](QMessageBox& box) {
    EXPECT_EQ(path, box.text().toStdString());
    box.accept();
  });
}
