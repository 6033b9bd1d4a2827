// The runtime of blocks, after the interface that clang publishes for them ("Block-ABI-Apple"). The one that
// Debian has for this compiler does not keep the Objective-C objects that a block has captured.
#import <Foundation/Foundation.h>

#include "tests/macos/supplement/Blocks.h"

#include <atomic>
#include <cstdlib>
#include <cstring>

namespace {

enum BlockFlag : int { CountMask = 0xfffe, OneCount = 2, OnHeap = 1 << 24, HasHelpers = 1 << 25, IsGlobal = 1 << 28 };
enum FieldKind : int { Object = 3, Block = 7, ByReference = 8, FromHelper = 128 };

struct Descriptor {
  unsigned long reserved;
  unsigned long size;
  void (*copy)(void* to, const void* from);
  void (*dispose)(const void* block);
};

struct BlockLiteral {
  void* isa;
  std::atomic<int> flags;
  int reserved;
  void* invoke;
  Descriptor* descriptor;
};

/// The box of a variable declared with __block.
struct VariableBox {
  void* isa;
  VariableBox* forwarding;
  std::atomic<int> flags;
  int size;
  void (*keep)(VariableBox* to, VariableBox* from);
  void (*destroy)(VariableBox* box);
};

/// True when the last count has gone.
bool dropCount(std::atomic<int>& flags) {
  return (flags.fetch_sub(OneCount) & CountMask) == OneCount;
}

VariableBox* boxOnHeap(VariableBox* box) {
  VariableBox* current = box->forwarding;
  if ((current->flags.load() & OnHeap) != 0) {
    current->flags.fetch_add(OneCount);
    return current;
  }
  auto* made = static_cast<VariableBox*>(std::malloc(static_cast<std::size_t>(box->size)));
  std::memcpy(static_cast<void*>(made), box, static_cast<std::size_t>(box->size));
  // One count for the block that copies, one for the scope the variable was declared in.
  made->flags.store(box->flags.load() | OnHeap | 2 * OneCount);
  made->forwarding = made;
  box->forwarding = made;
  if ((box->flags.load() & HasHelpers) != 0) {
    box->keep(made, box);
  }
  return made;
}

void releaseBox(VariableBox* box) {
  VariableBox* current = box->forwarding;
  if ((current->flags.load() & OnHeap) != 0 && dropCount(current->flags)) {
    if ((current->flags.load() & HasHelpers) != 0) {
      current->destroy(current);
    }
    std::free(current);
  }
}

}  // namespace

extern "C" {

void* _NSConcreteStackBlock[32];
void* _NSConcreteGlobalBlock[32];

void* _Block_copy(const void* literal) {
  auto* block = static_cast<BlockLiteral*>(const_cast<void*>(literal));
  if (block == nullptr || (block->flags.load() & IsGlobal) != 0) {
    return block;
  }
  if ((block->flags.load() & OnHeap) != 0) {
    block->flags.fetch_add(OneCount);
    return block;
  }
  auto* copy = static_cast<BlockLiteral*>(std::malloc(block->descriptor->size));
  std::memcpy(static_cast<void*>(copy), block, block->descriptor->size);
  copy->flags.store((block->flags.load() & ~0xffff) | OnHeap | OneCount);
  if ((block->flags.load() & HasHelpers) != 0) {
    block->descriptor->copy(copy, block);
  }
  return copy;
}

void _Block_release(const void* literal) {
  auto* block = static_cast<BlockLiteral*>(const_cast<void*>(literal));
  if (block == nullptr || (block->flags.load() & OnHeap) == 0 || !dropCount(block->flags)) {
    return;
  }
  if ((block->flags.load() & HasHelpers) != 0) {
    block->descriptor->dispose(block);
  }
  std::free(block);
}

void _Block_object_assign(void* to, const void* object, int kind) {
  const void* kept = object;
  if ((kind & FromHelper) == 0) {
    if ((kind & ByReference) != 0) {
      kept = boxOnHeap(static_cast<VariableBox*>(const_cast<void*>(object)));
    } else if ((kind & Block) == Block) {
      kept = _Block_copy(object);
    } else if ((kind & Object) == Object) {
      kept = [(id)object retain];
    }
  }
  *static_cast<const void**>(to) = kept;
}

void _Block_object_dispose(const void* object, int kind) {
  if ((kind & FromHelper) != 0) {
    return;
  }
  if ((kind & ByReference) != 0) {
    releaseBox(static_cast<VariableBox*>(const_cast<void*>(object)));
  } else if ((kind & Block) == Block) {
    _Block_release(object);
  } else if ((kind & Object) == Object) {
    [(id)object release];
  }
}
}
