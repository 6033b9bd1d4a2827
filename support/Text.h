#pragma once

#include <string>

namespace roomlattice {

/// `text` (UTF-8) without the characters at its ends that have the Unicode property White_Space (PropList.txt of the
/// Unicode Character Database): blanks, tabs and newlines of every kind. Bytes that are not UTF-8 are kept.
std::string trimWhitespace(const std::string& text);

/// Whether `bytes` are well-formed UTF-8 (RFC 3629).
bool isUtf8(const std::string& bytes);

}  // namespace roomlattice
