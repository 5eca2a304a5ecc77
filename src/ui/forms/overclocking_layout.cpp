#include "ui/forms/pages.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kPage = "overclocking";

constexpr ControlSpec kSpecs[] = {
    PageSpec(kPage, "Overclocking"),
};

}  // namespace

const std::span<const ControlSpec> kOverclockingPages = kSpecs;

}  // namespace kestrune::forms
