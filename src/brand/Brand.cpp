#include "brand/Brand.h"

namespace tavrin {

namespace {

constexpr Brand kZelkar{"ZELKAR", "ZELKARTAVRIN", R"(System\CurrentControlSet\Services\ZelkarOpcServer)",
                        "Zelkar.OPCServer.1"};
constexpr Brand kQorvane{"QORVANE", "QORVANETAVRIN", R"(System\CurrentControlSet\Services\QorvaneOpcServer)",
                         "Qorvane.OPCServer.1"};

constexpr bool kIsQorvane = std::string_view(OEM_BRAND) == "QORVANE";

}  // namespace

const Brand& OemBrand() { return kIsQorvane ? kQorvane : kZelkar; }

bool IsQorvane() { return kIsQorvane; }

}  // namespace tavrin
