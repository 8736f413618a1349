#include "host/Offered.h"

#include <CLI/CLI.hpp>

namespace pstolvane1::host {
namespace {

constexpr const char* kOffered = "offered";

}  // namespace

void Offer(CLI::Option& option, const std::string& values) {
  option.check(CLI::Validator([](std::string&) { return std::string(); }, values, kOffered));
}

std::string OfferedBy(CLI::Option& option) {
  try {
    return option.get_validator(kOffered)->get_description();
  } catch (const CLI::OptionNotFound&) {
    return {};
  }
}

}  // namespace pstolvane1::host
