#include "app/qt/principal.h"

#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QShowEvent>
#include <QTimer>

#include "app/qt/fonts.h"
#include "app/qt/pictures.h"
#include "app/qt/progress_bar.h"

TPrincipal* Principal = nullptr;

namespace {

/// The form is drawn at 144 pixels per inch; the framework counts 96 and scales for the screen.
constexpr int fromDesign(int pixels) { return (pixels * 96 + 72) / 144; }

constexpr int kWidth = fromDesign(545);
constexpr int kHeight = fromDesign(434);
constexpr int kBarLeft = fromDesign(23);
constexpr int kBarWidth = fromDesign(492);

}  // namespace

TPrincipal::TPrincipal(QWidget* owner, const std::string& item0, const std::string& item1,
                       const std::string& item2, const std::string& item3)
    : QDialog(owner), run_({item0, item1, item2, item3}) {
  setObjectName("Principal");
  setWindowTitle("Calculando ...");
  // A title and nothing to click on it.
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::MSWindowsFixedSizeDialogHint);
  setFixedSize(kWidth, kHeight);
  move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
  setFont(formFont());

  Panel1 = new QFrame(this);
  Panel1->setObjectName("Panel1");
  Panel1->setGeometry(rect());
  Panel1->setAutoFillBackground(true);
  QPalette blackOnWhite = Panel1->palette();
  blackOnWhite.setColor(QPalette::Window, Qt::white);
  blackOnWhite.setColor(QPalette::WindowText, Qt::black);
  Panel1->setPalette(blackOnWhite);

  Image1 = new QLabel(Panel1);
  Image1->setObjectName("Image1");
  Image1->setGeometry(kBarLeft, 14, kBarWidth, 106);
  Image1->setPixmap(logoPicture());
  Image1->setScaledContents(true);

  Label1 = stage("Label1", 200, "Generando el edificio", true);
  Label2 = stage("Label2", 246, "Obtención de parámetros característicos");
  Label3 = stage("Label3", 292, "Cálculo de demandas, consumos, calificación");
  Label4 = stage("Label4", 338, "Cálculo de medidas de ahorro precuantificadas");

  pbBarra = new ProgressBar(Panel1);
  pbBarra->setObjectName("pbBarra");
  pbBarra->setGeometry(kBarLeft, fromDesign(385), kBarWidth, fromDesign(23));

  Timer1 = new QTimer(this);
  Timer1->setObjectName("Timer1");
  Timer1->setInterval(1000);
  connect(Timer1, &QTimer::timeout, this, &TPrincipal::Timer1Timer);
}

QLabel* TPrincipal::stage(const char* name, int designTop, const char* caption, bool bold) {
  auto* label = new QLabel(Panel1);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setText(caption);
  QFont font = stageFont();
  font.setPixelSize(fromDesign(18));
  font.setBold(bold);
  label->setFont(font);
  const int left = fromDesign(69);
  placeLabel(*label, left, fromDesign(designTop), kBarLeft + kBarWidth - left);
  return label;
}

void TPrincipal::FormShow() { Timer1->start(); }

void TPrincipal::Timer1Timer() {
  if (!run_.tick()) return;
  Timer1->stop();
  run_.run(*pbBarra);
  close();
}

void TPrincipal::reject() {
  if (run_.isOver()) QDialog::reject();
}

void TPrincipal::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!event->spontaneous()) FormShow();
}
