#include "platform/View.h"

#include <gtest/gtest.h>

#include <vector>

namespace roomlattice::platform {
namespace {

class Plate : public View {
 public:
  ViewContent content() const override { return {}; }
};

class CountingHost : public ViewHost {
 public:
  void viewChanged() override { ++changes; }
  TextField* textField() override { return nullptr; }
  void cancelMenuTracking() override {}

  int changes = 0;
};

TEST(ViewTest, TellsItsHostOfANewFrame) {
  Plate plate;
  CountingHost host;
  plate.setHost(&host);
  plate.setFrame({{0.0, 0.0}, {10.0, 20.0}});
  EXPECT_EQ(host.changes, 1);
  EXPECT_EQ(plate.frame(), (Rect{{0.0, 0.0}, {10.0, 20.0}}));
}

TEST(ViewTest, DoesNotMentionAFrameItHasAlready) {
  Plate plate;
  plate.setFrame({{0.0, 0.0}, {10.0, 20.0}});
  CountingHost host;
  plate.setHost(&host);
  plate.setFrame({{0.0, 0.0}, {10.0, 20.0}});
  EXPECT_EQ(host.changes, 0);
}

TEST(ViewTest, HearsOnceThatItIsShownNoLonger) {
  class Guest final : public Plate {
   public:
    void hostingEnded() override { endings.push_back(host()); }

    std::vector<ViewHost*> endings;
  };
  Guest guest;
  CountingHost host;
  guest.setHost(nullptr);
  guest.setHost(&host);
  EXPECT_TRUE(guest.endings.empty());
  guest.setHost(nullptr);
  guest.setHost(nullptr);
  EXPECT_EQ(guest.endings, std::vector<ViewHost*>{nullptr});
}

TEST(ViewTest, NeedsNoHost) {
  Plate plate;
  plate.setFrame({{0.0, 0.0}, {10.0, 20.0}});
  EXPECT_EQ(plate.host(), nullptr);
}

TEST(ViewTest, TakesClicksWithinItsBoundsWhereverItStands) {
  Plate plate;
  plate.setFrame({{100.0, 100.0}, {10.0, 20.0}});
  EXPECT_EQ(plate.hitTest({0.0, 0.0}), HitTarget::View);
  EXPECT_EQ(plate.hitTest({9.9, 19.9}), HitTarget::View);
  EXPECT_EQ(plate.hitTest({10.0, 0.0}), HitTarget::None);
  EXPECT_EQ(plate.hitTest({0.0, 20.0}), HitTarget::None);
  EXPECT_EQ(plate.hitTest({105.0, 105.0}), HitTarget::None);
}

TEST(ViewTest, LeavesTheEditorsCommandsAlone) {
  Plate plate;
  EXPECT_EQ(plate.doCommand(EditCommand::InsertNewline), CommandDisposition::NotHandled);
  EXPECT_EQ(plate.doCommand(EditCommand::Cancel), CommandDisposition::NotHandled);
}

}  // namespace
}  // namespace roomlattice::platform
