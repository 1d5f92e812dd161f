#pragma once

#include <array>
#include <functional>
#include <string>

#include "app/desktop/progress_run.h"
#include "app/win32/form_window.h"
#include "core/platform.h"

/// The bar of the progress form, the system's control in the form's colours: 0 to 100.
class ProgressBar : public TProgressBar {
 public:
  explicit ProgressBar(HWND control) : control_(control) {}
  int GetPosition() const override;
  /// Positions beyond the ends stop at them.
  void SetPosition(int position) override;
  HWND handle() const { return control_; }

 private:
  HWND control_;
};

/// The progress form: the program's face during a run. Once shown it lets two ticks of its timer
/// pass, so that it is seen, starts the run on the third and closes when the run is over. A run
/// that fails ends the process instead. The user cannot close it before.
class TPrincipal : public FormWindow {
 public:
  /// `closed` is called when the form has closed. `owner` may be null.
  TPrincipal(HWND owner, const std::string& item0, const std::string& item1,
             const std::string& item2, const std::string& item3, std::function<void()> closed);

  void show() override;
  void FormShow();
  void Timer1Timer();
  void btnCancelarClick() {}  // a run is not cancelled

 private:
  void layOut() override;
  void layOutBar();
  LRESULT onMessage(UINT message, WPARAM wide, LPARAM longer) override;
  void paintLogo(HDC paper) const;
  void paintBarsEdge(HDC paper) const;

  ProgressRun run_;
  std::function<void()> closed_;
  std::array<HWND, std::size(progress_form::kStages)> labels_;
  ProgressBar pbBarra_;
  Font stage_;
  Font boldStage_;
  Bitmap logo_;
};

/// The main form; set by start-up.
extern TPrincipal* Principal;
