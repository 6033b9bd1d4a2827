#pragma once

#include "platform/Platform.h"
#include "preferences/PreferencesStore.h"

#include <string>

namespace roomlattice {

/// The content of a label window: a rounded dark plate with the desktop's name in large white type, in one line. The
/// type's size follows the preferences; desktop colours are left to the menu bar.
class SignView final : public platform::View {
 public:
  SignView(platform::Platform& platform, const PreferencesStore& preferences, std::string text);

  const std::string& text() const { return text_; }
  void setText(const std::string& text);

  platform::ViewContent content() const override;

  /// The font of labels under these preferences.
  static platform::Font labelFont(const PreferencesStore& preferences);

 private:
  void prefsChanged();
  platform::Rect labelFrame() const;

  platform::Platform& platform_;
  const PreferencesStore& preferences_;
  std::string text_;
  platform::Font font_;
  platform::Registration preferencesObserver_;
};

}  // namespace roomlattice
