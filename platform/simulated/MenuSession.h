#pragma once

#include "platform/Menu.h"
#include "platform/simulated/HostedView.h"
#include "platform/simulated/SimulatedKeyEvent.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::simulated {

/// One opening of a menu: its views are hosted exactly as long as it is open. Its rows stand below each other from the
/// top of its frame, as wide as the frame: a view as high as the view is, a command 22 points, a separator 12 points.
/// The frame is as wide as the widest view, or command title and 44 points.
class MenuSession final : private ViewSurroundings, private FieldFocus {
 public:
  /// Has the menu brought up to date and opens it with its top left corner at `topLeft`. The menu outlives the session.
  MenuSession(Menu& menu, Point topLeft);
  ~MenuSession() override;

  /// False once tracking has ended; then there are no rows, and nothing to do with the session but let it go.
  bool isOpen() const { return open_; }

  Rect frame() const { return frame_; }
  const std::vector<MenuItem>& items() const { return menu_.items; }
  /// Of an existing row; a script that asks for another is stopped.
  const Rect& rowFrame(std::size_t row) const;
  std::optional<std::size_t> rowAt(Point point) const;

  /// The view of a row and its text field; null where there is none.
  View* view(std::size_t row) const;
  SimulatedTextField* textField(std::size_t row) const;

  /// The field being edited, or null.
  SimulatedTextField* focusedField() const;

  /// The titles of the commands, and empty texts for the other items.
  std::vector<std::string> titles() const;

  /// Enters and leaves rows. Points are in screen coordinates.
  void pointerMoved(Point point);

  /// A click beside the menu ends tracking, and so does one on a command, whose action comes next.
  void click(Point point);

  /// A key that no monitor swallowed: to the field being edited, else as a key equivalent; Escape ends tracking.
  void keyDown(const SimulatedKeyEvent& event);

  void cancelMenuTracking() override;

 private:
  struct Row {
    Rect frame;
    std::unique_ptr<HostedView> host;
  };

  FieldFocus& fieldFocus() override { return *this; }
  bool moveTo(SimulatedTextField& field) override;
  void contentWritten() override {}
  void layOut(Point topLeft);
  void leaveRow();
  void invoke(const CommandItem& command);

  Menu& menu_;
  Rect frame_;
  std::vector<Row> rows_;
  std::optional<std::size_t> entered_;
  bool open_ = true;
};

}  // namespace roomlattice::platform::simulated
