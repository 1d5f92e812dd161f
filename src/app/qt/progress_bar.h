#pragma once

#include <QProgressBar>

#include "app/desktop/forms.h"
#include "core/platform.h"

/// The bar of the progress form: 0 to 100, drawn flat in its own colours under every style, at a
/// place in pixels of the screen.
class ProgressBar : public QProgressBar, public TProgressBar {
 public:
  explicit ProgressBar(QWidget* parent);
  void setPlace(const FormPlace& place);
  const FormPlace& place() const { return place_; }

  int GetPosition() const override { return value(); }
  /// Positions beyond the ends stop at them.
  void SetPosition(int position) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  FormPlace place_ = {};
};
