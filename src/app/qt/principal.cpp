#include "app/qt/principal.h"

#include <QFrame>
#include <QShowEvent>
#include <QTimer>
#include <QWindow>

#include "app/desktop/forms.h"
#include "app/qt/drawn_form.h"
#include "app/qt/pictures.h"
#include "app/qt/progress_bar.h"
#include "app/qt/window_place.h"

using namespace progress_form;

TPrincipal* Principal = nullptr;

TPrincipal::TPrincipal(QWidget* owner, const std::string& item0, const std::string& item1,
                       const std::string& item2, const std::string& item3)
    : QDialog(owner), run_({item0, item1, item2, item3}) {
  setObjectName("Principal");
  setWindowTitle(toQt(kTitle));
  // A title and nothing to click on it.
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::MSWindowsFixedSizeDialogHint);
  setFixedSize(toPixels(kClient.width, kDpi, 96), toPixels(kClient.height, kDpi, 96));
  new WindowPlace(*this, nullptr);
  setFont(toQt(kFont, kDpi));
  QPalette colours = palette();
  colours.setColor(QPalette::Window, toQt(kPanel));
  colours.setColor(QPalette::WindowText, toQt(kStageColour));
  setPalette(colours);

  Panel1 = new QFrame(this);
  Panel1->setObjectName("Panel1");
  Panel1->setAutoFillBackground(true);

  Image1 = new PlacedPicture(Panel1);
  Image1->setObjectName("Image1");
  Image1->setScaledContents(true);

  PlacedLabel** const labels[] = {&Label1, &Label2, &Label3, &Label4};
  static_assert(std::size(labels) == std::size(kStages));
  for (std::size_t i = 0; i < std::size(labels); ++i) {
    PlacedLabel* const label = *labels[i] = new PlacedLabel(Panel1);
    label->setObjectName(kStages[i].name);
    label->setTextFormat(Qt::PlainText);
    label->setText(toQt(kStages[i].caption));
    QFont font = toQt(kStageFont, kDpi);
    font.setBold(kStages[i].bold);
    label->setFont(font);
  }

  pbBarra = new ProgressBar(Panel1);
  pbBarra->setObjectName("pbBarra");
  layOut();

  Timer1 = new QTimer(this);
  Timer1->setObjectName("Timer1");
  Timer1->setTimerType(Qt::PreciseTimer);
  Timer1->setInterval(kTimerInterval);
  connect(Timer1, &QTimer::timeout, this, &TPrincipal::Timer1Timer);
}

void TPrincipal::layOut() {
  const int dpi = dpiOf(*this);
  Panel1->setGeometry(rect().adjusted(0, 0, 1, 1));  // a screen's last pixel may be half of one
  Image1->setPlace(at(kLogo, kDpi, dpi));
  Image1->setPixmap(logoPicture(logoScale(dpi)));
  PlacedLabel* const labels[] = {Label1, Label2, Label3, Label4};
  for (std::size_t i = 0; i < std::size(labels); ++i) labels[i]->setPlace(stagePlace(i, dpi));
  pbBarra->setPlace(at(kBar, kDpi, dpi));
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

void TPrincipal::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  layOut();
}

void TPrincipal::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (event->spontaneous()) return;
  layOut();
  connect(windowHandle(), &QWindow::screenChanged, this, &TPrincipal::layOut, Qt::UniqueConnection);
  FormShow();
}
