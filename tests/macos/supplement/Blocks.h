#pragma once

#include <objc/blocks_runtime.h>
#include <utility>

namespace roomlattice::gnustep {

/// Owns a copy of a block.
template <class Block>
class BlockPointer {
 public:
  BlockPointer() = default;
  explicit BlockPointer(Block block) : block_((Block)_Block_copy((const void*)block)) {}
  BlockPointer(const BlockPointer& other) : BlockPointer(other.block_) {}
  BlockPointer& operator=(BlockPointer other) {
    std::swap(block_, other.block_);
    return *this;
  }
  ~BlockPointer() { _Block_release((const void*)block_); }

  Block get() const { return block_; }
  explicit operator bool() const { return block_ != nullptr; }

 private:
  Block block_ = nullptr;
};

}  // namespace roomlattice::gnustep
