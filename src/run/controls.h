#pragma once
// The form models of the run use the shared control values.
#include "common/controls.h"

namespace lupin::run {

using common::Button;
using common::CheckBox;
using common::Frame;
using common::Label;
using common::TextBox;

}  // namespace lupin::run
