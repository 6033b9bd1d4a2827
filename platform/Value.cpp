#include "platform/Value.h"

namespace roomlattice::platform {

std::optional<double> Value::toDouble() const {
  if (const double* number = asDouble()) {
    return *number;
  }
  if (const std::int64_t* number = asInteger()) {
    return static_cast<double>(*number);
  }
  return std::nullopt;
}

std::optional<bool> Value::toBool() const {
  if (const bool* flag = asBool()) {
    return *flag;
  }
  if (const std::optional<double> number = toDouble(); number == 0.0 || number == 1.0) {
    return number == 1.0;
  }
  return std::nullopt;
}

std::optional<std::vector<std::string>> Value::toStrings() const {
  const Array* array = asArray();
  if (array == nullptr) {
    return std::nullopt;
  }
  std::vector<std::string> strings;
  for (const Value& element : *array) {
    const std::string* string = element.asString();
    if (string == nullptr) {
      return std::nullopt;
    }
    strings.push_back(*string);
  }
  return strings;
}

std::optional<std::map<std::string, std::string>> Value::toStringDictionary() const {
  const Dictionary* dictionary = asDictionary();
  if (dictionary == nullptr) {
    return std::nullopt;
  }
  std::map<std::string, std::string> strings;
  for (const auto& [key, value] : *dictionary) {
    const std::string* string = value.asString();
    if (string == nullptr) {
      return std::nullopt;
    }
    strings.emplace(key, *string);
  }
  return strings;
}

std::optional<std::vector<const Value::Dictionary*>> Value::toDictionaries() const {
  const Array* array = asArray();
  if (array == nullptr) {
    return std::nullopt;
  }
  std::vector<const Dictionary*> dictionaries;
  for (const Value& element : *array) {
    const Dictionary* dictionary = element.asDictionary();
    if (dictionary == nullptr) {
      return std::nullopt;
    }
    dictionaries.push_back(dictionary);
  }
  return dictionaries;
}

const Value* find(const Value::Dictionary& dictionary, const std::string& key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : &found->second;
}

}  // namespace roomlattice::platform
