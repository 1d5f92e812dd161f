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

  /// Runs the template of `edDatos` in a modal progress form, without any other path, so that the
  /// run fails where it looks for the typology file. An empty text is only remarked upon.
  void btnCalcularClick();
  void btnCerrarClick();

  // The parts of the form, which owns them.
  QLabel* Label1;
  QLineEdit* edDatos;
  QPushButton* btnCalcular;
  QPushButton* btnCerrar;
};

/// Set by start-up.
extern TfrmCalculo* frmCalculo;
