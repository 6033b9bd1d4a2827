#pragma once

#include "platform/Platform.h"
#include "spaces/SpaceInfo.h"

#include <functional>
#include <string>

namespace roomlattice {

/// A desktop's row in the status menu: a dot, the name, and while the pointer is over it a pencil. A click switches to
/// the desktop; the pencil turns the name into a text field. All of it happens while the menu is open, so the row takes
/// the keys of its field itself.
class SpaceRowView final : public platform::View {
 public:
  SpaceRowView(platform::Platform& platform, SpaceInfo space, bool isActive, const platform::Color& dotColor,
               std::string displayName);

  /// Called on a later turn of the main queue, when the menu has closed. May be empty.
  std::function<void()> onSwitch;

  /// Called with the text as it was typed, blank or not. May be empty.
  std::function<void(const std::string& name)> onCommitRename;

  const SpaceInfo& space() const { return space_; }

  platform::ViewContent content() const override;
  platform::HitTarget hitTest(platform::Point point) const override;
  void mouseEntered() override;
  void mouseExited() override;
  void mouseUp(platform::Point point) override;
  void buttonClicked() override { renameClicked(); }
  platform::CommandDisposition doCommand(platform::EditCommand command) override;

 protected:
  /// The menu has closed: an edit that was under way is lost.
  void hostingEnded() override { cancelRename(); }

 private:
  platform::Image makeDot() const;
  platform::Font font() const;
  platform::Rect labelFrame() const;
  platform::Rect editFieldFrame() const;
  platform::Rect pencilFrame() const;
  bool isOnPencil(platform::Point point) const;

  /// Null while nobody shows the row: what would stand in it is the name as it was.
  platform::TextField* textField() const;

  void renameClicked();
  void installMonitor();
  platform::KeyDisposition handleKey(const platform::KeyEvent& event);
  void commit();
  void cancelRename();
  void endEditing();

  platform::Platform& platform_;
  SpaceInfo space_;
  bool isActive_;
  platform::Color dotColor_;
  // The name when the row was made; the row never updates it.
  std::string displayName_;
  std::string labelText_;
  bool isPencilVisible_ = false;
  // Outlasts an edit that began with it, until the pointer leaves.
  bool isHighlighted_ = false;
  bool isEditing_ = false;
  platform::Registration eventMonitor_;
};

}  // namespace roomlattice
