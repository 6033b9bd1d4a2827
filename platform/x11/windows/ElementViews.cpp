#include "platform/x11/windows/ElementViews.h"

#include "platform/x11/drawing/Drawing.h"
#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"
#include "platform/x11/windows/SymbolButton.h"
#include "support/Lifetime.h"

#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <variant>

namespace roomlattice::platform::x11 {
namespace {

constexpr std::chrono::milliseconds spinnerTurn(1000);

/// An element that is painted with the widget of its view.
template <class Element>
class PaintedElementView : public ElementView {
 public:
  explicit PaintedElementView(QWidget& widget) : widget_(widget) {}

  void update(const ViewElement& element, double viewHeight) override {
    element_ = std::get<Element>(element.kind);
    frame_ = toQt(element.frame, viewHeight);
    isHidden_ = element.hidden;
  }

  void paint(QPainter& painter) final {
    if (!isHidden_) {
      draw(painter, element_, frame_);
    }
  }

 protected:
  virtual void draw(QPainter& painter, const Element& element, const QRectF& frame) = 0;

  QWidget& widget() const { return widget_; }

 private:
  QWidget& widget_;
  Element element_;
  QRectF frame_;
  bool isHidden_ = false;
};

class TextElementView final : public PaintedElementView<TextElement> {
 public:
  using PaintedElementView::PaintedElementView;

 private:
  void draw(QPainter& painter, const TextElement& text, const QRectF& frame) override {
    drawText(painter, frame, text.text, toQt(text.font), toQt(text.color, widget().palette()), text.alignment);
  }
};

class ImageElementView final : public PaintedElementView<ImageElement> {
 public:
  using PaintedElementView::PaintedElementView;

 private:
  void draw(QPainter& painter, const ImageElement& image, const QRectF& frame) override {
    const QPalette& palette = widget().palette();
    drawImage(painter, frame, image.image, toQt(SystemColor::Label, palette));
    outlineFaintShapes(painter, frame, image.image, palette.color(QPalette::Window), toQt(SystemColor::Label, palette));
  }
};

/// It turns from when it is first painted until it is hidden, or its view is.
class SpinnerElementView final : public PaintedElementView<SpinnerElement> {
 public:
  explicit SpinnerElementView(QWidget& widget) : PaintedElementView(widget) {
    QObject::connect(&turning_, &QTimer::timeout, &turning_, [this] { turn(); });
  }

  void update(const ViewElement& element, double viewHeight) override {
    PaintedElementView::update(element, viewHeight);
    if (element.hidden) {
      turning_.stop();
    }
  }

 private:
  void draw(QPainter& painter, const SpinnerElement&, const QRectF& frame) override {
    if (!turning_.isActive()) {
      turning_.start(spinnerTurn / spinnerSteps);
    }
    drawSpinner(painter, frame, step_, Qt::white);
  }

  void turn() {
    if (!widget().isVisible()) {
      turning_.stop();
      return;
    }
    step_ = (step_ + 1) % spinnerSteps;
    widget().update();
  }

  QTimer turning_;
  int step_ = 0;
};

/// An element that is a widget of its own. The child may be in use when its view is shown no longer: it stays with its
/// parent and tells the view nothing from then on.
template <class Child>
class ChildElementView : public ElementView {
 public:
  void update(const ViewElement& element, double viewHeight) override {
    child_->setGeometry(toQt(element.frame, viewHeight).toAlignedRect());
    child_->setVisible(!element.hidden);
  }

 protected:
  explicit ChildElementView(Child* child) : child_(child) {}

  Child& child() const { return *child_; }
  const Lifetime& lifetime() const { return lifetime_; }

 private:
  Child* child_;
  Lifetime lifetime_;
};

class ButtonElementView final : public ChildElementView<SymbolButton> {
 public:
  ButtonElementView(View& view, QWidget& widget) : ChildElementView(new SymbolButton(&widget)) {
    QObject::connect(&child(), &QAbstractButton::clicked, &child(),
                     lifetime().guard([&view](bool) { view.buttonClicked(); }));
  }

  void update(const ViewElement& element, double viewHeight) override {
    child().show(std::get<ButtonElement>(element.kind));
    ChildElementView::update(element, viewHeight);
  }
};

class TextFieldElementView final : public ChildElementView<X11TextField> {
 public:
  TextFieldElementView(View& view, QWidget& widget) : ChildElementView(new X11TextField(&widget)) {
    child().onCommand = lifetime().guard([&view](EditCommand command) { view.doCommand(command); });
  }

  X11TextField* textField() override { return &child(); }

  void update(const ViewElement& element, double viewHeight) override {
    child().setFont(toQt(std::get<TextFieldElement>(element.kind).font));
    if (element.hidden && child().hasFocus()) {
      // Otherwise a menu around the view would take the focus to its next row.
      child().window()->setFocus(Qt::OtherFocusReason);
    }
    ChildElementView::update(element, viewHeight);
  }
};

struct Maker {
  View& view;
  QWidget& widget;

  std::unique_ptr<ElementView> operator()(const TextElement&) const {
    return std::make_unique<TextElementView>(widget);
  }
  std::unique_ptr<ElementView> operator()(const ImageElement&) const {
    return std::make_unique<ImageElementView>(widget);
  }
  std::unique_ptr<ElementView> operator()(const SpinnerElement&) const {
    return std::make_unique<SpinnerElementView>(widget);
  }
  std::unique_ptr<ElementView> operator()(const ButtonElement&) const {
    return std::make_unique<ButtonElementView>(view, widget);
  }
  std::unique_ptr<ElementView> operator()(const TextFieldElement&) const {
    return std::make_unique<TextFieldElementView>(view, widget);
  }
};

}  // namespace

std::unique_ptr<ElementView> makeElementView(const ViewElement& element, View& view, QWidget& widget) {
  std::unique_ptr<ElementView> made = std::visit(Maker{view, widget}, element.kind);
  made->update(element, view.frame().size.height);
  return made;
}

}  // namespace roomlattice::platform::x11
