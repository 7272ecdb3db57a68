#pragma once
// A renderer that cannot write its output at all ends the job with this.
#include <stdexcept>

namespace lupin::engine {

class RenderError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace lupin::engine
