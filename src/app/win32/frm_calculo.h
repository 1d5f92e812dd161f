#pragma once

#include "app/win32/form_window.h"

/// The input form, on which a template can be typed by hand. Start-up creates it and does not show
/// it: the calling programs give everything on the command line.
class TfrmCalculo : public FormWindow {
 public:
  explicit TfrmCalculo(HWND owner);

  /// Runs the template of `edDatos` in a modal progress form, without any other path, so that the
  /// run fails where it looks for the typology file. An empty text is only remarked upon.
  void btnCalcularClick();
  void btnCerrarClick();

 private:
  void layOut() override;
  LRESULT onMessage(UINT message, WPARAM wide, LPARAM longer) override;

  HWND Label1_;
  HWND edDatos_;
  HWND btnCalcular_;
  HWND btnCerrar_;
  Font font_;
};

/// Set by start-up.
extern TfrmCalculo* frmCalculo;
