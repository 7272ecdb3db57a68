#pragma once
// A line of the carrier files: every value in double quotes as it stands (inner quotes are not
// doubled), separated by commas, ended by CR LF.
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace lupin::exchange {

void AppendQuotedLine(std::string& out, std::span<const std::string> values);
void AppendQuotedLine(std::string& out, std::span<const std::string_view> values);
void AppendQuotedLine(std::string& out, std::initializer_list<std::string_view> values);

}  // namespace lupin::exchange
