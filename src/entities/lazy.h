#pragma once

#include <memory>
#include <utility>

#include "entities/keyed_collection.h"

namespace orvent::entities {

/// A part of a record that is made when it is first read for writing. Reading through `peek`, `count` or a loop makes
/// nothing.
template <class T>
class Lazy {
  public:
    T& operator*() {
        if (!value_) {
            value_ = std::make_unique<T>();
        }
        return *value_;
    }
    T* operator->() { return &**this; }

    T* peek() { return value_.get(); }
    const T* peek() const { return value_.get(); }
    int count() const { return value_ ? value_->Count() : 0; }

    auto begin() { return value_ ? value_->begin() : none<T>(); }
    auto end() { return value_ ? value_->end() : none<T>(); }
    auto begin() const { return value_ ? std::as_const(*value_).begin() : none<const T>(); }
    auto end() const { return value_ ? std::as_const(*value_).end() : none<const T>(); }

    void replace(std::unique_ptr<T> value) { value_ = std::move(value); }

  private:
    template <class Part>
    static auto none() {
        return decltype(std::declval<Part&>().begin())();
    }

    std::unique_ptr<T> value_;
};

/// Whether a record is its plain fields and so many lists, that is whether its `Clone` knows them all.
template <class Record, class Fields, std::size_t lists>
constexpr bool isFieldsAndLists = sizeof(Record) == sizeof(Fields) + lists * sizeof(Lazy<KeyedCollection<int>>);

}  // namespace orvent::entities
