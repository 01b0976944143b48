#pragma once

#include <string>
#include <string_view>

namespace tavrin {

/// The item that the monitor watches at the demonstration server, whatever tag it was opened for.
inline constexpr std::string_view kDemoItem = "increment.UI2 array";

/// ProgID of the server that the online windows talk to: the demonstration server with -DEMO, else the brand's.
[[nodiscard]] std::string_view OnlineServerProgID();

/// The name under which the server publishes a tag. The "/" stands whatever separator the project uses.
[[nodiscard]] std::string OnlineItemName(std::string_view device, std::string_view tag);

}  // namespace tavrin
