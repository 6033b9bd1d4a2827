#pragma once

#include "platform/View.h"
#include "platform/simulated/SimulatedTextField.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace roomlattice::platform::simulated {

/// What a view stands in: a window or an open menu.
class ViewSurroundings {
 public:
  virtual ~ViewSurroundings() = default;

  virtual FieldFocus& fieldFocus() = 0;
  virtual void contentWritten() = 0;
  virtual void cancelMenuTracking() = 0;
};

/// Shows one view as long as this object lives; the view and its surroundings outlive it.
class HostedView final : public ViewHost {
 public:
  HostedView(View& view, ViewSurroundings& surroundings);
  ~HostedView() override;
  HostedView(const HostedView&) = delete;
  HostedView& operator=(const HostedView&) = delete;

  void viewChanged() override;
  SimulatedTextField* textField() override;
  void cancelMenuTracking() override;

  View& view() const { return view_; }

  /// Gives a click at `point`, in the view's coordinates, to what the view's hit test names.
  void click(Point point);

 private:
  View& view_;
  ViewSurroundings& surroundings_;
  std::vector<std::size_t> kinds_;
  std::optional<SimulatedTextField> textField_;
};

}  // namespace roomlattice::platform::simulated
