#import "platform/macos/Images.h"

#import "platform/macos/Colors.h"
#import "platform/macos/Geometry.h"
#import "platform/macos/Strings.h"

namespace roomlattice::platform::macos {
namespace {

NSBezierPath* outline(const Shape& shape) {
  const NSRect bounds = toNSRect(shape.bounds);
  switch (shape.kind) {
    case ShapeKind::RoundedRect:
      return [NSBezierPath bezierPathWithRoundedRect:bounds xRadius:shape.cornerRadius yRadius:shape.cornerRadius];
    case ShapeKind::Ellipse:
      return [NSBezierPath bezierPathWithOvalInRect:bounds];
  }
}

void draw(const Shape& shape) {
  NSBezierPath* path = outline(shape);
  NSColor* color = toNSColor(shape.color);
  if (shape.lineWidth) {
    [color setStroke];
    [path setLineWidth:*shape.lineWidth];
    [path stroke];
  } else {
    [color setFill];
    [path fill];
  }
}

}  // namespace

NSImage* toNSImage(const Image& image) {
  const std::vector<Shape> shapes = image.shapes;
  NSImage* drawn = [NSImage imageWithSize:NSMakeSize(image.size.width, image.size.height)
                                  flipped:NO
                           drawingHandler:^BOOL(NSRect) {
                             for (const Shape& shape : shapes) {
                               draw(shape);
                             }
                             return YES;
                           }];
  [drawn setTemplate:image.isTemplate];
  return drawn;
}

NSImage* toNSImage(const SymbolImage& symbol) {
  return [NSImage imageWithSystemSymbolName:toNSString(symbol.name)
                   accessibilityDescription:toNSString(symbol.accessibilityDescription)];
}

}  // namespace roomlattice::platform::macos
