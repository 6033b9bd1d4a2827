#pragma once

#import <Foundation/Foundation.h>

#include "platform/Value.h"

namespace roomlattice::platform::macos {

/// The value of a Foundation object. Objects of classes that a value has no form for, dates say, and nil are null.
Value toValue(id object);

/// What a property list stores for `value`. Property lists know no null: nil for a null, and inner nulls are left out.
id toPropertyList(const Value& value);

/// What NSJSONSerialization takes for `value`; nil when it holds something JSON has no form for.
id toJsonObject(const Value& value);

}  // namespace roomlattice::platform::macos
