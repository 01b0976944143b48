#include "brand/Brand.h"

namespace tavrin {

namespace {

// Firms, streets and mail domains are invented; the telephone numbers are among those that are kept for such.
constexpr Brand kZelkar{"ZELKAR",
                        "ZELKARTAVRIN",
                        R"(System\CurrentControlSet\Services\ZelkarOpcServer)",
                        "Zelkar.OPCServer.1",
                        {{"ZELKAR Steuerungen GmbH", "Klemmleistenweg 12", "80000 M\xFCnchen", "Germany"},
                         {"+49 89 99998-110", "+49 89 99998-119", "opc@zelkar.example.com", "zelkar.example.com"}}};
constexpr Brand kQorvane{"QORVANE",
                         "QORVANETAVRIN",
                         R"(System\CurrentControlSet\Services\QorvaneOpcServer)",
                         "Qorvane.OPCServer.1",
                         {{"QORVANE Controls Ltd.", "7 Ladder Logic Lane", "London", "United Kingdom"},
                          {"+44 20 7946 0120", "+44 20 7946 0129", "opc@qorvane.example.net", "qorvane.example.net"}}};

constexpr bool kIsQorvane = std::string_view(OEM_BRAND) == "QORVANE";

}  // namespace

const Brand& OemBrand() { return kIsQorvane ? kQorvane : kZelkar; }

bool IsQorvane() { return kIsQorvane; }

}  // namespace tavrin
