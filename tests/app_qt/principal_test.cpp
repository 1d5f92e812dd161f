#include "app/qt/principal.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <new>
#include <stdexcept>

#include "app/qt/drawn_form.h"
#include "app/qt/progress_bar.h"
#include "app/run_generation.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

namespace {

const std::string kSamples = SAMPLES_FOLDER;
const std::string kHouse = kSamples + "/casa-adosada/casa-adosada.bdl";
const std::string kTypology = kSamples + "/casa-adosada/tipo-03.tip";

/// A form whose run fails at its first check.
class FormWithoutFiles : public TPrincipal {
 public:
  explicit FormWithoutFiles(const TemporaryFolder& folder)
      : TPrincipal(nullptr, folder / "no.bdl", folder / "no.tip", folder / "out", folder / "fin") {}
};

/// The pixels within `part` that are not white.
QRect notWhite(const QImage& image, const QRect& part) {
  QRect found;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      if (image.pixelColor(x, y) != QColor(Qt::white)) found |= QRect(x, y, 1, 1);
    }
  }
  return found;
}

/// The bar of a run without a form; keeps positions beyond 100.
class UnboundedBar : public TProgressBar {
 public:
  int GetPosition() const override { return position; }
  void SetPosition(int p) override { position = p; }
  int position = 0;
};

}  // namespace

TEST(Principal, HasATitleAndNothingToClickOnIt) {
  const TemporaryFolder folder;
  const FormWithoutFiles form(folder);
  EXPECT_EQ("Calculando ...", form.windowTitle());
  const Qt::WindowFlags flags = form.windowFlags();
  EXPECT_EQ(Qt::Window, form.windowType());
  EXPECT_TRUE(flags.testFlag(Qt::CustomizeWindowHint));
  EXPECT_TRUE(flags.testFlag(Qt::WindowTitleHint));
  EXPECT_FALSE(flags.testFlag(Qt::WindowSystemMenuHint));
  EXPECT_FALSE(flags.testFlag(Qt::WindowCloseButtonHint));
  EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
  EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
}

TEST(Principal, IsOfOneSizeInTheMiddleOfTheScreen) {
  const TemporaryFolder folder;
  FormWithoutFiles form(folder);
  const QSize size(363, 289);  // 545 x 434 at 144 pixels per inch
  EXPECT_EQ(size, form.minimumSize());
  EXPECT_EQ(size, form.maximumSize());
  form.show();
  EXPECT_EQ(size, form.size());
  const QPoint offset = form.geometry().center() - form.screen()->availableGeometry().center();
  EXPECT_LE(offset.manhattanLength(), 8);
}

TEST(Principal, ShowsTheFourStages) {
  const TemporaryFolder folder;
  const FormWithoutFiles form(folder);
  const struct {
    const char* name;
    const PlacedLabel* label;
    const char* caption;
    int top;  // the first at 200 of 144 pixels per inch, the others 46 below each other
    bool bold;
  } cases[] = {
      {"Label1", form.Label1, "Generando el edificio", 133, true},
      {"Label2", form.Label2, "Obtención de parámetros característicos", 164, false},
      {"Label3", form.Label3, "Cálculo de demandas, consumos, calificación", 195, false},
      {"Label4", form.Label4, "Cálculo de medidas de ahorro precuantificadas", 226, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(c.label, form.findChild<QLabel*>(c.name));
    EXPECT_EQ(c.caption, c.label->text());
    EXPECT_EQ(QPoint(46, c.top), c.label->pos());
    EXPECT_EQ("Tahoma", c.label->font().family());
    EXPECT_EQ(12, c.label->font().pixelSize());
    EXPECT_EQ(c.bold, c.label->font().bold());
    EXPECT_EQ(QColor(Qt::black), c.label->palette().color(QPalette::WindowText));
    EXPECT_LE(c.label->sizeHint().width(), c.label->width()) << "cut off";
    EXPECT_LE(c.label->sizeHint().height(), c.label->height()) << "cut off";
    EXPECT_TRUE(form.rect().contains(c.label->geometry()));
  }
}

TEST(Principal, ItsCaptionsArePaintedWhereTheyStand) {
  const TemporaryFolder folder;
  FormWithoutFiles form(folder);
  const QImage image = form.grab().toImage();
  for (const PlacedLabel* label : {form.Label1, form.Label2, form.Label3, form.Label4}) {
    const QRect painted = notWhite(image, label->geometry());
    EXPECT_NEAR(label->x(), painted.left(), 2);
    EXPECT_GE(painted.width(), label->fontMetrics().horizontalAdvance(label->text()) - 4);
    EXPECT_GE(painted.top(), label->y());
    EXPECT_LT(painted.bottom(), label->geometry().bottom()) << "cut off";
  }
}

TEST(Principal, ShowsItsLogoAtTheTopLeftStretched) {
  const TemporaryFolder folder;
  FormWithoutFiles form(folder);
  EXPECT_EQ(form.Image1, form.findChild<QLabel*>("Image1"));
  EXPECT_TRUE(form.Image1->hasScaledContents());
  EXPECT_EQ(QSize(328, 106), form.Image1->pixmap().size()) << "its raster of 100 %";
  EXPECT_EQ(form.pbBarra->x(), form.Image1->x());
  EXPECT_LT(form.Image1->geometry().bottom(), form.Label1->y());
  // The dwelling in the plan's corner, well inside its walls.
  const QImage image = form.grab().toImage();
  EXPECT_EQ(QColor(0, 164, 219), image.pixelColor(form.Image1->pos() + QPoint(10, 13)));
}

TEST(Principal, IsWhiteWhateverTheDesktopsColours) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
  const TemporaryFolder folder;
  {
    FormWithoutFiles form(folder);
    EXPECT_EQ(form.Panel1, form.findChild<QFrame*>("Panel1"));
    EXPECT_TRUE(form.Panel1->geometry().contains(form.rect()));
    const QImage image = form.grab().toImage();
    for (const QPoint corner : {form.rect().topLeft(), form.rect().topRight(),
                                form.rect().bottomLeft(), form.rect().bottomRight()}) {
      EXPECT_EQ(QColor(Qt::white), image.pixelColor(corner));
    }
  }
  QApplication::setPalette(before);
}

TEST(Principal, ItsPanelCoversItInWhateverSizeItIsGiven) {
  const TemporaryFolder folder;
  FormWithoutFiles form(folder);
  form.setFixedSize(600, 500);  // by a window manager that does as it likes
  form.show();
  EXPECT_TRUE(form.Panel1->geometry().contains(form.rect()));
}

TEST(Principal, ItsBarIsEmptyAtFirst) {
  const TemporaryFolder folder;
  const FormWithoutFiles form(folder);
  EXPECT_EQ(form.pbBarra, form.findChild<QProgressBar*>("pbBarra"));
  // (23, 385), 492 x 23 at 144 pixels per inch
  EXPECT_EQ(QRect(15, 257, 328, 15), form.pbBarra->geometry());
  EXPECT_EQ(0, form.pbBarra->GetPosition());
}

TEST(Principal, ItsTimerStartsWhenItIsShown) {
  const TemporaryFolder folder;
  FormWithoutFiles form(folder);
  EXPECT_EQ(form.Timer1, form.findChild<QTimer*>("Timer1"));
  EXPECT_EQ(1000, form.Timer1->interval());
  EXPECT_FALSE(form.Timer1->isSingleShot());
  EXPECT_EQ(Qt::PreciseTimer, form.Timer1->timerType());
  EXPECT_FALSE(form.Timer1->isActive());
  form.show();
  EXPECT_TRUE(form.Timer1->isActive());
}

TEST(Principal, TheRunStartsOnTheThirdTick) {
  const TemporaryFolder folder;
  FormWithoutFiles form(folder);
  form.show();
  for (int tick = 1; tick <= 2; ++tick) {
    SCOPED_TRACE(tick);
    EXPECT_EQ(kNotStopped, stopMessage([&] { form.Timer1Timer(); }));
    EXPECT_TRUE(form.Timer1->isActive());
    EXPECT_FALSE(folder.has("Error.log")) << "a run has begun";
  }
  const int processedBefore = recordingApplication().processed;
  EXPECT_EQ("No existe el fichero de datos *.bdl", stopMessage([&] { form.Timer1Timer(); }));
  EXPECT_FALSE(form.Timer1->isActive());
  EXPECT_EQ(processedBefore + 1, recordingApplication().processed) << "to be painted before";
  EXPECT_TRUE(folder.has("Error.log"));
  EXPECT_FALSE(folder.has("fin"));
}

TEST(Principal, ItsCancelHandlerDoesNothing) {
  const TemporaryFolder folder;
  FormWithoutFiles form(folder);
  form.show();
  form.btnCancelarClick();
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(form.Timer1->isActive());
}

TEST(Principal, TheUserCannotCloseIt) {
  const TemporaryFolder folder;
  FormWithoutFiles form(folder);
  form.show();
  EXPECT_FALSE(form.close());
  EXPECT_TRUE(form.isVisible());
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(&form, &escape);
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(form.Timer1->isActive());
}

TEST(Principal, RunsAndClosesByItself) {
  const TemporaryFolder folder;
  TPrincipal form(nullptr, kHouse, kTypology, folder / "form.bdl", folder / "fin");
  form.Timer1->setInterval(1);
  QObject::connect(&form, &QDialog::finished, [] { QCoreApplication::exit(); });
  form.show();
  QApplication::exec();
  EXPECT_FALSE(form.isVisible());
  EXPECT_FALSE(form.Timer1->isActive());

  UnboundedBar bar;
  RunGeneration(bar, {kHouse, kTypology, folder / "bare.bdl", folder / "fin"});
  EXPECT_EQ(folder.read("bare.bdl"), folder.read("form.bdl"));
  ASSERT_GT(bar.position, 100);
  EXPECT_EQ(100, form.pbBarra->GetPosition());
  EXPECT_FALSE(folder.has("fin")) << "the marker comes after the form";
}

TEST(Principal, TheUserCannotCloseItDuringTheRun) {
  class ClosingUser : public RecordingApplication {
   public:
    void ProcessMessages() override {
      ++processed;
      form->close();
      stayedOpen = stayedOpen && form->isVisible();
    }
    TPrincipal* form = nullptr;
    bool stayedOpen = true;
  } user;
  const TemporaryFolder folder;
  TPrincipal form(nullptr, kHouse, kTypology, folder / "out.bdl", folder / "fin");
  user.form = &form;
  Application = &user;
  form.show();
  for (int tick = 1; tick <= 3; ++tick) form.Timer1Timer();
  Application = &recordingApplication();
  EXPECT_GT(user.processed, 3);
  EXPECT_TRUE(user.stayedOpen);
  EXPECT_FALSE(form.isVisible()) << "closed after the run";
}
