#include "app/qt/frm_calculo.h"

#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

#include "app/qt/fonts.h"
#include "app/qt/principal.h"
#include "core/cp1252.h"
#include "core/platform.h"

TfrmCalculo* frmCalculo = nullptr;

namespace {
constexpr int kLabelLeft = 61;
constexpr int kEditLeft = 136;
constexpr int kGap = 4;
}  // namespace

TfrmCalculo::TfrmCalculo(QWidget* owner) : QDialog(owner) {
  setObjectName("frmCalculo");
  setWindowTitle("VORK");
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
  resize(532, 243);
  move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
  QFont font = formFont();
  font.setPixelSize(11);
  setFont(font);

  Label1 = new QLabel("Edificio Objeto", this);
  Label1->setObjectName("Label1");
  placeLabel(*Label1, kLabelLeft, 32, kEditLeft - kGap - kLabelLeft);

  edDatos = new QLineEdit(this);
  edDatos->setObjectName("edDatos");
  edDatos->setGeometry(kEditLeft, 32, 313, edDatos->sizeHint().height());

  btnCalcular = new QPushButton("Calcular", this);
  btnCalcular->setObjectName("btnCalcular");
  btnCalcular->setGeometry(352, 208, 75, 25);
  btnCalcular->setAutoDefault(false);  // Return in the edit is no click
  connect(btnCalcular, &QPushButton::clicked, this, &TfrmCalculo::btnCalcularClick);

  btnCerrar = new QPushButton("Cerrar", this);
  btnCerrar->setObjectName("btnCerrar");
  btnCerrar->setGeometry(448, 208, 75, 25);
  btnCerrar->setAutoDefault(false);
  connect(btnCerrar, &QPushButton::clicked, this, &TfrmCalculo::btnCerrarClick);
}

void TfrmCalculo::btnCalcularClick() {
  if (edDatos->text().isEmpty()) {
    Application->MessageBox("No ha introducido algunos de los ficheros.", "Información"_cp1252);
    return;
  }
  TPrincipal progress(nullptr, edDatos->text().toLocal8Bit().toStdString(), "", "", "");
  progress.exec();
}

void TfrmCalculo::btnCerrarClick() { close(); }
