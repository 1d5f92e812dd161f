#pragma once

#include <QProgressBar>

#include "core/platform.h"

/// The bar of the progress form: 0 to 100, drawn flat in its own colours under every style.
class ProgressBar : public QProgressBar, public TProgressBar {
 public:
  explicit ProgressBar(QWidget* parent);
  int GetPosition() const override { return value(); }
  /// Positions beyond the ends stop at them.
  void SetPosition(int position) override;
};
