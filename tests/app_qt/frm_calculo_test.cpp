#include "app/qt/frm_calculo.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "app/qt/principal.h"
#include "core/cp1252.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

TEST(FrmCalculo, HasASystemMenuOnly) {
  const TfrmCalculo form(nullptr);
  EXPECT_EQ("VORK", form.windowTitle());
  const Qt::WindowFlags flags = form.windowFlags();
  EXPECT_TRUE(flags.testFlag(Qt::CustomizeWindowHint));
  EXPECT_TRUE(flags.testFlag(Qt::WindowSystemMenuHint));
  EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
  EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
}

TEST(FrmCalculo, IsLaidOutAsDrawn) {
  TfrmCalculo form(nullptr);
  form.show();
  EXPECT_EQ(QSize(532, 243), form.size());
  const QPoint offset = form.geometry().center() - form.screen()->availableGeometry().center();
  EXPECT_LE(offset.manhattanLength(), 8);
  EXPECT_EQ("MS Sans Serif", form.font().family());
  EXPECT_EQ(11, form.font().pixelSize());

  EXPECT_EQ("Edificio Objeto", form.Label1->text());
  EXPECT_EQ(QPoint(61, 32), form.Label1->pos());
  EXPECT_EQ(form.edDatos->geometry().center().y(), form.Label1->geometry().center().y());
  EXPECT_TRUE(form.Label1->alignment().testFlag(Qt::AlignVCenter));
  EXPECT_EQ(QPoint(136, 32), form.edDatos->pos());
  EXPECT_EQ(313, form.edDatos->width());
  EXPECT_EQ("Calcular", form.btnCalcular->text());
  EXPECT_EQ(QRect(352, 208, 75, 25), form.btnCalcular->geometry());
  EXPECT_EQ("Cerrar", form.btnCerrar->text());
  EXPECT_EQ(QRect(448, 208, 75, 25), form.btnCerrar->geometry());
  for (const char* name : {"Label1", "edDatos", "btnCalcular", "btnCerrar"}) {
    EXPECT_NE(nullptr, form.findChild<QWidget*>(name)) << name;
  }
}

TEST(FrmCalculo, NothingIsCutOff) {
  TfrmCalculo form(nullptr);
  EXPECT_LE(form.Label1->sizeHint().width(), form.Label1->width());
  EXPECT_LT(form.Label1->geometry().right(), form.edDatos->x());
  for (const QPushButton* button : {form.btnCalcular, form.btnCerrar}) {
    EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()), button->width() - 8);
  }
}

TEST(FrmCalculo, AsksForAFile) {
  TfrmCalculo form(nullptr);
  form.show();
  const std::size_t boxesBefore = recordingApplication().boxes.size();
  form.btnCalcular->click();
  ASSERT_EQ(boxesBefore + 1, recordingApplication().boxes.size());
  const RecordingApplication::Box& box = recordingApplication().boxes.back();
  EXPECT_EQ("No ha introducido algunos de los ficheros.", box.text);
  EXPECT_EQ("Información", cp1252::toUtf8(box.caption));
  EXPECT_TRUE(form.isVisible());
}

TEST(FrmCalculo, CloseButtonClosesIt) {
  TfrmCalculo form(nullptr);
  form.show();
  form.btnCerrar->click();
  EXPECT_FALSE(form.isVisible());
}

namespace {

/// Ends as a program does, and takes the test's folder with it.
class ProgramIn : public ExitingApplication {
 public:
  explicit ProgramIn(const TemporaryFolder& folder) : folder_(folder.path()) {
    std::filesystem::current_path(folder_);  // where the log of a run without a marker goes
  }

 private:
  void endProcess(int status) override {
    std::filesystem::current_path("/");
    std::filesystem::remove_all(folder_);
    std::_Exit(status);
  }
  std::string folder_;
};

void calculate(const std::string& text) {
  const TemporaryFolder folder;
  const ProgramIn program(folder);
  TfrmCalculo form(nullptr);
  form.show();
  form.edDatos->setText(QString::fromStdString(text));
  QTimer::singleShot(0, [] {
    auto* progress = dynamic_cast<TPrincipal*>(QApplication::activeModalWidget());
    if (progress == nullptr || !progress->Timer1->isActive()) std::_Exit(1);
    progress->Timer1->setInterval(1);
  });
  form.btnCalcular->click();
}

}  // namespace

TEST(FrmCalculoDeathTest, RunsTheFileInAModalProgressForm) {
  EXPECT_EXIT(calculate(SAMPLES_FOLDER "/casa-adosada/casa-adosada.bdl"),
              testing::ExitedWithCode(3), "No existe el fichero de datos \\*\\.tip");
  EXPECT_EXIT(calculate("no existe"), testing::ExitedWithCode(3),
              "No existe el fichero de datos \\*\\.bdl");
}
