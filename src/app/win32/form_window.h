#pragma once

#include <map>
#include <string_view>

#include "app/desktop/forms.h"
#include "app/win32/handles.h"

/// A form: a window of fixed size in the middle of the screen, laid out from its design for the
/// dots per inch of the monitor that it is on, and anew when those change. Pixels are never scaled
/// from the pixels of before.
class FormWindow {
 public:
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;
  virtual ~FormWindow();

  HWND handle() const { return handle_; }
  virtual void show();

 protected:
  struct Design {
    std::string_view title;
    FormSize client;
    int dpi;  // that the design counts
    DWORD style;
    int background;  // one of the system's colours
  };
  /// Not yet shown; `placeAll` is to be called when it has its children. Errors: a window that
  /// cannot be made ends the process.
  explicit FormWindow(const Design& design, HWND owner);

  /// The dots per inch that the form is to be laid out for: its monitor's or, for tests, those of
  /// the variable TIP2BDL_DPI.
  int dpi() const;

  HWND addChild(const wchar_t* windowClass, std::string_view text, DWORD style, int id = 0);
  void place(HWND child, const FormPlace& pixels) const;
  void setFont(HWND child, const Font& font) const;

  /// Gives the form its size, puts everything into its place and the form into the middle.
  void placeAll();
  /// Puts the children into their places for dpi().
  virtual void layOut() = 0;
  /// A message of the form's; what it does not know goes to `otherwise`.
  virtual LRESULT onMessage(UINT message, WPARAM wide, LPARAM longer) = 0;
  LRESULT otherwise(UINT message, WPARAM wide, LPARAM longer);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  void takeClientSize();
  void centre();

  Design design_;
  HWND handle_ = nullptr;
};

/// The font of the description for so many dots per inch, its first family that is installed.
Font makeFont(const FormFont& design, int designDpi, int dpi, bool bold = false);
