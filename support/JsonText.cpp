#include "support/JsonText.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

using Json = nlohmann::json;
using platform::Value;

constexpr std::size_t maximumDepth = 500;

std::optional<Json> toTree(const Value& value);

std::optional<Json> arrayToTree(const Value::Array& array) {
  Json tree = Json::array();
  for (const Value& element : array) {
    std::optional<Json> child = toTree(element);
    if (!child) {
      return std::nullopt;
    }
    tree.push_back(std::move(*child));
  }
  return tree;
}

std::optional<Json> dictionaryToTree(const Value::Dictionary& dictionary) {
  Json tree = Json::object();
  for (const auto& [key, element] : dictionary) {
    std::optional<Json> child = toTree(element);
    if (!child) {
      return std::nullopt;
    }
    tree[key] = std::move(*child);
  }
  return tree;
}

std::optional<Json> toTree(const Value& value) {
  if (const bool* flag = value.asBool()) {
    return Json(*flag);
  }
  if (const std::int64_t* number = value.asInteger()) {
    return Json(*number);
  }
  if (const double* number = value.asDouble()) {
    return std::isfinite(*number) ? std::optional(Json(*number)) : std::nullopt;
  }
  if (const std::string* string = value.asString()) {
    return Json(*string);
  }
  if (const Value::Array* array = value.asArray()) {
    return arrayToTree(*array);
  }
  if (const Value::Dictionary* dictionary = value.asDictionary()) {
    return dictionaryToTree(*dictionary);
  }
  return value.isNull() ? std::optional(Json(nullptr)) : std::nullopt;
}

/// Makes the value while the document is read. The library's own tree would take time that grows with the square of the
/// number of objects in one place, where it is asked to watch the depth.
class ValueReader final : public nlohmann::json_sax<Json> {
 public:
  Value take() { return std::move(result_); }

  bool null() override { return add({}); }
  bool boolean(bool flag) override { return add(flag); }
  bool number_integer(number_integer_t number) override { return add(std::int64_t{number}); }
  bool number_unsigned(number_unsigned_t number) override {
    constexpr auto most = static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max());
    return number > most ? add(static_cast<double>(number)) : add(static_cast<std::int64_t>(number));
  }
  bool number_float(number_float_t number, const string_t&) override { return add(number); }
  bool string(string_t& text) override { return add(std::move(text)); }
  bool binary(binary_t&) override { return false; }

  bool start_object(std::size_t) override { return begin(Kind::Object); }
  bool key(string_t& text) override {
    open_.back().key = std::move(text);
    return true;
  }
  bool end_object() override { return add(std::move(takeLast().members)); }
  bool start_array(std::size_t) override { return begin(Kind::Array); }
  bool end_array() override { return add(std::move(takeLast().elements)); }

  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override { return false; }

 private:
  enum class Kind { Array, Object };

  /// What has begun and not ended.
  struct Container {
    Kind kind;
    std::string key = {};
    Value::Array elements = {};
    Value::Dictionary members = {};
  };

  /// The document is refused as a whole where it is too deep: every later copy is recursive.
  bool begin(Kind kind) {
    open_.push_back({kind});
    return open_.size() <= maximumDepth;
  }

  Container takeLast() {
    Container last = std::move(open_.back());
    open_.pop_back();
    return last;
  }

  bool add(Value value) {
    if (open_.empty()) {
      result_ = std::move(value);
    } else if (open_.back().kind == Kind::Array) {
      open_.back().elements.push_back(std::move(value));
    } else {
      open_.back().members.insert_or_assign(std::move(open_.back().key), std::move(value));
    }
    return true;
  }

  std::vector<Container> open_;
  Value result_;
};

}  // namespace

std::optional<std::string> toJson(const Value& value, JsonLayout layout) {
  const std::optional<Json> tree = toTree(value);
  if (!tree) {
    return std::nullopt;
  }
  try {
    return tree->dump(layout == JsonLayout::Indented ? 2 : -1);
  } catch (const Json::exception&) {
    return std::nullopt;  // text that is not UTF-8
  }
}

std::optional<Value> fromJson(std::string_view text) {
  ValueReader reader;
  return Json::sax_parse(text, &reader) ? std::optional(reader.take()) : std::nullopt;
}

std::optional<Value::Data> JsonTextCodec::encode(const Value& value) const {
  const std::optional<std::string> text = toJson(value, JsonLayout::Compact);
  if (!text) {
    return std::nullopt;
  }
  const auto bytes = std::as_bytes(std::span(*text));
  return Value::Data(bytes.begin(), bytes.end());
}

std::optional<Value> JsonTextCodec::decode(const Value::Data& json) const {
  return fromJson({reinterpret_cast<const char*>(json.data()), json.size()});
}

}  // namespace roomlattice
