#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace roomlattice::platform {

/// Everything that crosses the platform boundary as loose data: window-server dictionaries, stored settings, JSON.
/// Strings are UTF-8. The typed reads answer with nothing when the value is of another type.
///
/// Copies share their elements and their data, which never change: to copy a value costs the same however large it is,
/// and so does to compare it with a copy of itself.
class Value {
 public:
  using Data = std::vector<std::byte>;
  using Array = std::vector<Value>;
  using Dictionary = std::map<std::string, Value>;

  Value() = default;
  Value(bool value) : storage_(value) {}
  Value(int value) : storage_(std::int64_t{value}) {}
  Value(std::int64_t value) : storage_(value) {}
  Value(double value) : storage_(value) {}
  Value(const char* value) : storage_(std::string(value)) {}
  Value(std::string value) : storage_(std::move(value)) {}
  Value(Data value) : storage_(Shared<Data>(std::move(value))) {}
  Value(Array value) : storage_(Shared<Array>(std::move(value))) {}
  Value(Dictionary value) : storage_(Shared<Dictionary>(std::move(value))) {}

  bool isNull() const { return std::holds_alternative<std::monostate>(storage_); }

  const bool* asBool() const { return std::get_if<bool>(&storage_); }
  const std::int64_t* asInteger() const { return std::get_if<std::int64_t>(&storage_); }
  const double* asDouble() const { return std::get_if<double>(&storage_); }
  const std::string* asString() const { return std::get_if<std::string>(&storage_); }
  const Data* asData() const { return elements<Data>(); }
  const Array* asArray() const { return elements<Array>(); }
  const Dictionary* asDictionary() const { return elements<Dictionary>(); }

  /// An integer or a double as a double. A Boolean is not a number.
  std::optional<double> toDouble() const;

  /// A Boolean, or a number that is exactly 0 or 1, as settings written by other tools often have them.
  std::optional<bool> toBool() const;

  /// The elements, if this is an array of nothing but strings.
  std::optional<std::vector<std::string>> toStrings() const;

  /// The entries, if this is a dictionary of nothing but strings.
  std::optional<std::map<std::string, std::string>> toStringDictionary() const;

  /// The elements, if this is an array of nothing but dictionaries. They stay owned by this value.
  std::optional<std::vector<const Dictionary*>> toDictionaries() const;

  bool operator==(const Value&) const = default;

 private:
  template <class Container>
  struct Shared {
    std::shared_ptr<const Container> elements;

    explicit Shared(Container given) : elements(std::make_shared<const Container>(std::move(given))) {}

    bool operator==(const Shared& other) const {
      return elements == other.elements ||
             (elements != nullptr && other.elements != nullptr && *elements == *other.elements);
    }
  };

  template <class Container>
  const Container* elements() const {
    const auto* shared = std::get_if<Shared<Container>>(&storage_);
    return shared == nullptr ? nullptr : shared->elements.get();
  }

  std::variant<std::monostate, bool, std::int64_t, double, std::string, Shared<Data>, Shared<Array>, Shared<Dictionary>>
      storage_;
};

/// The entry under `key`, or nothing.
const Value* find(const Value::Dictionary& dictionary, const std::string& key);

}  // namespace roomlattice::platform
