#pragma once

#include "app/win32/form_window.h"

/// The input form, on which a template can be typed by hand. Start-up creates it and does not show
/// it: the calling programs give everything on the command line.
class TfrmCalculo : public FormWindow {
 public:
  explicit TfrmCalculo(HWND owner);

  void btnCalcularClick();  // see calculate, with the text of `edDatos`
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
