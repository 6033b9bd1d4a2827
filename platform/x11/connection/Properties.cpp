#include "platform/x11/connection/Properties.h"

#include <QString>
#include <algorithm>
#include <cstring>
#include <string_view>

namespace roomlattice::platform::x11 {
namespace {

// In units of four bytes, as the protocol counts: a quarter of a megabyte.
constexpr std::uint32_t maximumLength = 1U << 16;

XcbPointer<xcb_get_property_reply_t> read(X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                                          xcb_atom_t type, std::uint8_t format) {
  const auto cookie = xcb_get_property(connection.raw(), 0, window, property, type, 0, maximumLength);
  auto reply = replyTo(connection.raw(), cookie, xcb_get_property_reply);
  if (reply == nullptr || reply->type != type || reply->format != format) {
    return nullptr;
  }
  return reply;
}

std::size_t sizeOf(const xcb_get_property_reply_t& reply) {
  return static_cast<std::size_t>(xcb_get_property_value_length(&reply));
}

std::string validUtf8(std::string_view text) {
  const auto isAscii = [](char character) { return static_cast<unsigned char>(character) < 0x80; };
  return std::ranges::all_of(text, isAscii)
             ? std::string(text)
             : QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

template <class Visit>
void forEachText(std::string_view bytes, Visit visit) {
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\0', start), bytes.size());
    visit(bytes.substr(start, end - start));
    start = end + 1;
  }
}

}  // namespace

std::optional<std::vector<std::uint32_t>> readNumbers(X11Connection& connection, xcb_window_t window,
                                                      xcb_atom_t property, xcb_atom_t type) {
  const auto reply = read(connection, window, property, type, 32);
  if (reply == nullptr) {
    return std::nullopt;
  }
  std::vector<std::uint32_t> numbers(sizeOf(*reply) / sizeof(std::uint32_t));
  if (!numbers.empty()) {
    std::memcpy(numbers.data(), xcb_get_property_value(reply.get()), numbers.size() * sizeof(std::uint32_t));
  }
  return numbers;
}

std::optional<std::uint32_t> readNumber(X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                                        xcb_atom_t type) {
  const auto numbers = readNumbers(connection, window, property, type);
  return numbers && !numbers->empty() ? std::optional(numbers->front()) : std::nullopt;
}

std::optional<std::string> readBytes(X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                                     xcb_atom_t type) {
  const auto reply = read(connection, window, property, type, 8);
  if (reply == nullptr) {
    return std::nullopt;
  }
  return std::string(static_cast<const char*>(xcb_get_property_value(reply.get())), sizeOf(*reply));
}

std::optional<std::string> readText(X11Connection& connection, xcb_window_t window, xcb_atom_t property) {
  const auto bytes = readBytes(connection, window, property, connection.ewmh()->UTF8_STRING);
  return bytes ? std::optional(validUtf8(*bytes)) : std::nullopt;
}

std::vector<std::string> textsOf(const std::string& bytes) {
  std::vector<std::string> texts;
  replaceTexts(texts, bytes);
  return texts;
}

void replaceTexts(std::vector<std::string>& texts, const std::string& bytes) {
  std::size_t count = 0;
  forEachText(bytes, [&](std::string_view text) {
    if (count == texts.size()) {
      texts.push_back(validUtf8(text));
    } else if (texts[count] != text) {
      texts[count] = validUtf8(text);
    }
    ++count;
  });
  texts.resize(count);
}

std::vector<std::string> rawTextsOf(const std::string& bytes) {
  std::vector<std::string> texts;
  forEachText(bytes, [&](std::string_view text) { texts.emplace_back(text); });
  return texts;
}

std::string bytesOf(const std::vector<std::string>& texts) {
  std::string bytes;
  for (const std::string& text : texts) {
    bytes.append(text.c_str()).push_back('\0');
  }
  return bytes;
}

}  // namespace roomlattice::platform::x11
