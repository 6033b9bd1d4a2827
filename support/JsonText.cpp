#include "support/JsonText.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <span>
#include <utility>

namespace roomlattice {
namespace {

using Json = nlohmann::json;
using platform::Value;

constexpr int maximumDepth = 500;

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

Value fromTree(const Json& tree) {
  switch (tree.type()) {
    case Json::value_t::boolean:
      return tree.get<bool>();
    case Json::value_t::number_integer:
      return tree.get<std::int64_t>();
    case Json::value_t::number_unsigned: {
      const auto number = tree.get<std::uint64_t>();
      if (number > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
        return static_cast<double>(number);
      }
      return static_cast<std::int64_t>(number);
    }
    case Json::value_t::number_float:
      return tree.get<double>();
    case Json::value_t::string:
      return tree.get<std::string>();
    case Json::value_t::array: {
      Value::Array array;
      for (const Json& element : tree) {
        array.push_back(fromTree(element));
      }
      return array;
    }
    case Json::value_t::object: {
      Value::Dictionary dictionary;
      for (const auto& [key, element] : tree.items()) {
        dictionary.emplace(key, fromTree(element));
      }
      return dictionary;
    }
    default:
      return {};
  }
}

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
  // The document is refused as a whole where it is too deep: the conversion and every later copy are recursive.
  bool tooDeep = false;
  const auto watchDepth = [&tooDeep](int depth, Json::parse_event_t event, Json&) {
    // The depth given with the start of a container is that of what surrounds it.
    const bool starts = event == Json::parse_event_t::array_start || event == Json::parse_event_t::object_start;
    tooDeep = tooDeep || depth + (starts ? 1 : 0) > maximumDepth;
    return !tooDeep;
  };
  try {
    const Json tree = Json::parse(text, watchDepth);
    return tooDeep ? std::nullopt : std::optional(fromTree(tree));
  } catch (const Json::exception&) {
    return std::nullopt;
  }
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
