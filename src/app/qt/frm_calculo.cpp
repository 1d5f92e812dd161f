#include "app/qt/frm_calculo.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "app/desktop/calculate.h"
#include "app/desktop/forms.h"
#include "app/qt/drawn_form.h"
#include "app/qt/principal.h"
#include "app/qt/window_place.h"

TfrmCalculo* frmCalculo = nullptr;

using namespace input_form;

TfrmCalculo::TfrmCalculo(QWidget* owner) : QDialog(owner) {
  setObjectName("frmCalculo");
  setWindowTitle(toQt(kTitle));
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
  resize(kClient.width, kClient.height);
  new WindowPlace(*this, nullptr);
  setFont(toQt(kFont, kDpi));

  edDatos = new QLineEdit(this);
  edDatos->setObjectName("edDatos");
  QRect place = toQt(kEditPlace);
  place.setHeight(std::max(place.height(), edDatos->sizeHint().height()));  // a style may need more
  edDatos->setGeometry(place);

  Label1 = new QLabel(toQt(kLabel), this);
  Label1->setObjectName("Label1");
  Label1->setFont(fitted(Label1->font(), Label1->text(), kLabelPlace.width));
  Label1->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  Label1->setGeometry(kLabelPlace.left, place.top(), kLabelPlace.width, place.height());

  const auto button = [this](const char* name, std::string_view caption, const FormPlace& at) {
    auto* made = new QPushButton(toQt(caption), this);
    made->setObjectName(name);
    made->setGeometry(toQt(at));
    made->setAutoDefault(false);  // Return in the edit is no click
    return made;
  };
  btnCalcular = button("btnCalcular", kCalculate, kCalculatePlace);
  connect(btnCalcular, &QPushButton::clicked, this, &TfrmCalculo::btnCalcularClick);
  btnCerrar = button("btnCerrar", kClose, kClosePlace);
  connect(btnCerrar, &QPushButton::clicked, this, &TfrmCalculo::btnCerrarClick);
}

void TfrmCalculo::btnCalcularClick() {
  calculate(edDatos->text().toLocal8Bit().toStdString(), [](const RunPaths& paths) {
    TPrincipal(nullptr, paths.dataFile, paths.typologyFile, paths.outputFile, paths.markerFile)
        .exec();
  });
}

void TfrmCalculo::btnCerrarClick() { close(); }
