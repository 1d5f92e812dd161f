#pragma once

#include <QProgressBar>

#include "app/qt/drawn_form.h"
#include "core/platform.h"

/// The bar of the progress form: 0 to 100, drawn flat in its own colours under every style.
class ProgressBar : public Placed<QProgressBar>, public TProgressBar {
 public:
  explicit ProgressBar(QWidget* parent);

  int GetPosition() const override { return value(); }
  /// Positions beyond the ends stop at them.
  void SetPosition(int position) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};
