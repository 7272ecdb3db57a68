#pragma once
// Runtime errors the tax code raises where the old runtime raised them; overflow is vb::OverflowError.
#include <stdexcept>

namespace lupin::money {

// A value that cannot be converted, e.g. a NULL read as a date (runtime error 13).
struct TypeMismatchError : std::runtime_error {
  TypeMismatchError() : std::runtime_error("型が一致しません。") {}
};

// A quotient with a zero divisor (runtime error 11).
struct DivisionByZeroError : std::runtime_error {
  DivisionByZeroError() : std::runtime_error("0 で除算しました。") {}
};

}  // namespace lupin::money
