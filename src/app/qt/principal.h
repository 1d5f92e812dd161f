#pragma once

#include <QDialog>
#include <string>

#include "app/desktop/progress_run.h"

class PlacedLabel;
class PlacedPicture;
class ProgressBar;
class QFrame;
class QTimer;

/// The progress form: the program's face during a run. Once shown it lets two ticks of its timer
/// pass, so that it is seen, starts the run on the third and closes when the run is over. A run
/// that fails ends the process instead. The user cannot close it before.
class TPrincipal : public QDialog {
 public:
  /// `owner` may be null.
  TPrincipal(QWidget* owner, const std::string& item0, const std::string& item1,
             const std::string& item2, const std::string& item3);

  void FormShow();
  void Timer1Timer();
  void btnCancelarClick() {}  // a run is not cancelled

  /// Every way to close the form leads here; without effect until the run is over.
  void reject() override;

  // The parts of the form, which owns them.
  QFrame* Panel1;         // white background
  PlacedPicture* Image1;  // the logo, stretched
  PlacedLabel* Label1;    // the four stages of a rating; this program is the first, in bold
  PlacedLabel* Label2;
  PlacedLabel* Label3;
  PlacedLabel* Label4;
  ProgressBar* pbBarra;
  QTimer* Timer1;  // enabled when the form is shown

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  /// Puts everything in its place on the screen that the form is on.
  void layOut();

  ProgressRun run_;
};

/// The main form; set by start-up.
extern TPrincipal* Principal;
