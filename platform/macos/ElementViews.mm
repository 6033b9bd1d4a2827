#import "platform/macos/ElementViews.h"

#import "platform/macos/Action.h"
#import "platform/macos/Colors.h"
#import "platform/macos/Fonts.h"
#import "platform/macos/Geometry.h"
#import "platform/macos/Images.h"
#import "platform/macos/Strings.h"

namespace roomlattice::platform::macos {
namespace {

template <class Native>
class ElementViewOf : public ElementView {
 public:
  explicit ElementViewOf(Native* native) : native_(share(native)) {}

  NSView* get() const override { return native_.get(); }

 protected:
  Native* native() const { return native_.get(); }

 private:
  ObjectPointer<Native> native_;
};

class TextElementView final : public ElementViewOf<NSTextField> {
 public:
  TextElementView() : ElementViewOf([NSTextField labelWithString:@""]) {
    [[native() cell] setLineBreakMode:NSLineBreakByTruncatingTail];
    [native() setMaximumNumberOfLines:1];
  }

  void show(const ViewElement& element) override {
    const auto& text = std::get<TextElement>(element.kind);
    [native() setStringValue:toNSString(toSingleLine(text.text))];
    [native() setFont:toNSFont(text.font)];
    [native() setTextColor:toNSColor(text.color)];
    [native() setAlignment:text.alignment == TextAlignment::Center ? NSTextAlignmentCenter : NSTextAlignmentLeft];
  }

  // A label's cell keeps a margin around its text, whose frame is what the element states.
  NSRect frameFor(const ViewElement& element) const override {
    const auto& text = std::get<TextElement>(element.kind);
    const NSSize cell = [[native() cell] cellSize];
    const Size size = textSize(text.text, text.font);
    return NSInsetRect(toNSRect(element.frame), (size.width - cell.width) * 0.5, (size.height - cell.height) * 0.5);
  }
};

class ImageElementView final : public ElementViewOf<NSImageView> {
 public:
  ImageElementView() : ElementViewOf([[[NSImageView alloc] initWithFrame:NSZeroRect] autorelease]) {}

  void show(const ViewElement& element) override {
    const auto& image = std::get<ImageElement>(element.kind);
    [native() setImage:toNSImage(image.image)];
  }
};

class SpinnerElementView final : public ElementViewOf<NSProgressIndicator> {
 public:
  SpinnerElementView() : ElementViewOf([[[NSProgressIndicator alloc] initWithFrame:NSZeroRect] autorelease]) {
    [native() setStyle:NSProgressIndicatorStyleSpinning];
    [native() setIndeterminate:YES];
    [native() setControlSize:NSControlSizeRegular];
    [native() setAppearance:[NSAppearance appearanceNamed:NSAppearanceNameDarkAqua]];
    [native() startAnimation:nil];
  }
  ~SpinnerElementView() override { [native() stopAnimation:nil]; }

  void show(const ViewElement&) override {}
};

class ButtonElementView final : public ElementViewOf<NSButton> {
 public:
  explicit ButtonElementView(View& view)
      : ElementViewOf([[[NSButton alloc] initWithFrame:NSZeroRect] autorelease]),
        action_(adopt([[RoomlatticeAction alloc] initWithFunction:[&view](id) { view.buttonClicked(); }])) {
    [native() setBordered:NO];
    [native() setBezelStyle:NSBezelStyleRegularSquare];
    [native() setImagePosition:NSImageOnly];
    [native() setTarget:action_.get()];
    [native() setAction:@selector(invoke:)];
  }
  ~ButtonElementView() override { [native() setTarget:nil]; }

  void show(const ViewElement& element) override {
    const auto& button = std::get<ButtonElement>(element.kind);
    if (symbol_ != button.symbol) {
      symbol_ = button.symbol;
      [native() setImage:toNSImage(button.symbol)];
    }
    [native() setToolTip:toNSString(button.toolTip)];
  }

 private:
  ObjectPointer<RoomlatticeAction> action_;
  SymbolImage symbol_;
};

class TextFieldElementView final : public ElementView {
 public:
  explicit TextFieldElementView(View& view) : field_(view) {}

  NSView* get() const override { return field_.get(); }
  MacTextField* textField() override { return &field_; }

  void show(const ViewElement& element) override {
    const auto& field = std::get<TextFieldElement>(element.kind);
    [field_.get() setFont:toNSFont(field.font)];
  }

 private:
  MacTextField field_;
};

struct ElementViewMaker {
  View& view;

  std::unique_ptr<ElementView> operator()(const TextElement&) const { return std::make_unique<TextElementView>(); }
  std::unique_ptr<ElementView> operator()(const ImageElement&) const { return std::make_unique<ImageElementView>(); }
  std::unique_ptr<ElementView> operator()(const SpinnerElement&) const {
    return std::make_unique<SpinnerElementView>();
  }
  std::unique_ptr<ElementView> operator()(const ButtonElement&) const {
    return std::make_unique<ButtonElementView>(view);
  }
  std::unique_ptr<ElementView> operator()(const TextFieldElement&) const {
    return std::make_unique<TextFieldElementView>(view);
  }
};

}  // namespace

void ElementView::update(const ViewElement& element, NSView* container) {
  show(element);
  // Its edges on pixels, or text would be blurred; outward, or it would lack room.
  [get() setFrame:[container backingAlignedRect:frameFor(element) options:NSAlignAllEdgesOutward]];
  [get() setHidden:element.hidden];
}

NSRect ElementView::frameFor(const ViewElement& element) const {
  return toNSRect(element.frame);
}

std::unique_ptr<ElementView> makeElementView(const ViewElement& element, View& view) {
  return std::visit(ElementViewMaker{view}, element.kind);
}

}  // namespace roomlattice::platform::macos
