#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

/// The input form, on which a template can be typed by hand. Start-up creates it and does not show
/// it: the calling programs give everything on the command line.
class TfrmCalculo : public QDialog {
 public:
  explicit TfrmCalculo(QWidget* owner);

  void btnCalcularClick();  // see calculate, with the text of `edDatos`
  void btnCerrarClick();

  // The parts of the form, which owns them.
  QLabel* Label1;
  QLineEdit* edDatos;
  QPushButton* btnCalcular;
  QPushButton* btnCerrar;
};

/// Set by start-up.
extern TfrmCalculo* frmCalculo;
