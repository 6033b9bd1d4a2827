#include "platform/linux/storage/SettingsText.h"

#include "support/JsonText.h"

#include <QByteArray>
#include <span>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

constexpr const char* textForm = "$text";
constexpr const char* dataForm = "$data";
constexpr const char* dictionaryForm = "$dictionary";

Value encoded(const Value& value);
Value decoded(const Value& value);

Value encodedData(const Value::Data& data) {
  std::string bytes(reinterpret_cast<const char*>(data.data()), data.size());
  if (toJson(Value(bytes), JsonLayout::Compact)) {
    return Value::Dictionary{{textForm, std::move(bytes)}};
  }
  return Value::Dictionary{{dataForm, QByteArray::fromStdString(bytes).toBase64().toStdString()}};
}

Value dataOf(const std::string& bytes) {
  const auto view = std::as_bytes(std::span(bytes));
  return Value::Data(view.begin(), view.end());
}

Value::Dictionary encodedEntries(const Value::Dictionary& dictionary) {
  Value::Dictionary result;
  for (const auto& [key, value] : dictionary) {
    result.emplace(key, encoded(value));
  }
  return result;
}

Value::Dictionary decodedEntries(const Value::Dictionary& dictionary) {
  Value::Dictionary result;
  for (const auto& [key, value] : dictionary) {
    result.emplace(key, decoded(value));
  }
  return result;
}

bool looksLikeAForm(const Value::Dictionary& dictionary) {
  return dictionary.size() == 1 && dictionary.begin()->first.starts_with('$');
}

Value encoded(const Value& value) {
  if (const Value::Data* data = value.asData()) {
    return encodedData(*data);
  }
  if (const Value::Array* array = value.asArray()) {
    Value::Array result;
    for (const Value& element : *array) {
      result.emplace_back(encoded(element));
    }
    return result;
  }
  if (const Value::Dictionary* dictionary = value.asDictionary()) {
    Value::Dictionary result = encodedEntries(*dictionary);
    if (!looksLikeAForm(*dictionary)) {
      return result;
    }
    Value::Dictionary form;
    form.emplace(dictionaryForm, std::move(result));
    return form;
  }
  return value;
}

std::optional<Value> dataFromBase64(const std::string& text) {
  const auto result =
      QByteArray::fromBase64Encoding(QByteArray::fromStdString(text), QByteArray::AbortOnBase64DecodingErrors);
  return result ? std::optional(dataOf((*result).toStdString())) : std::nullopt;
}

/// What stands in a form; nothing when the dictionary is none.
std::optional<Value> decodedForm(const Value::Dictionary& dictionary) {
  if (!looksLikeAForm(dictionary)) {
    return std::nullopt;
  }
  const auto& [key, value] = *dictionary.begin();
  const std::string* text = value.asString();
  const Value::Dictionary* inner = value.asDictionary();
  if (key == textForm && text != nullptr) {
    return dataOf(*text);
  }
  if (key == dataForm && text != nullptr) {
    return dataFromBase64(*text);
  }
  if (key == dictionaryForm && inner != nullptr) {
    return decodedEntries(*inner);
  }
  return std::nullopt;
}

Value decoded(const Value& value) {
  if (const Value::Array* array = value.asArray()) {
    Value::Array result;
    for (const Value& element : *array) {
      result.emplace_back(decoded(element));
    }
    return result;
  }
  if (const Value::Dictionary* dictionary = value.asDictionary()) {
    const std::optional<Value> form = decodedForm(*dictionary);
    return form ? *form : decodedEntries(*dictionary);
  }
  return value;
}

std::size_t leastSize(const Value::Dictionary& dictionary);

/// No text of the value is shorter than so many bytes.
std::size_t leastSize(const Value& value) {
  if (const std::string* string = value.asString()) {
    return string->size();
  }
  if (const Value::Data* data = value.asData()) {
    return data->size();
  }
  if (const Value::Dictionary* dictionary = value.asDictionary()) {
    return leastSize(*dictionary);
  }
  std::size_t size = 1;
  if (const Value::Array* array = value.asArray()) {
    for (const Value& element : *array) {
      size += leastSize(element);
    }
  }
  return size;
}

std::size_t leastSize(const Value::Dictionary& dictionary) {
  std::size_t size = 0;
  for (const auto& [key, value] : dictionary) {
    size += key.size() + leastSize(value);
  }
  return size;
}

}  // namespace

std::optional<std::string> toSettingsText(const Value::Dictionary& settings) {
  // What is far too large costs no text that nobody will read.
  if (leastSize(settings) > maximumSettingsSize) {
    return std::nullopt;
  }
  // The outermost object is never a form, whatever its keys are.
  std::optional<std::string> text = toJson(encodedEntries(settings), JsonLayout::Indented);
  if (!text) {
    return std::nullopt;
  }
  *text += '\n';
  return fromSettingsText(*text) == settings ? text : std::nullopt;
}

std::optional<Value::Dictionary> fromSettingsText(std::string_view text) {
  const std::optional<Value> value = text.size() > maximumSettingsSize ? std::nullopt : fromJson(text);
  const Value::Dictionary* settings = value ? value->asDictionary() : nullptr;
  return settings == nullptr ? std::nullopt : std::optional(decodedEntries(*settings));
}

}  // namespace roomlattice::platform::linux
