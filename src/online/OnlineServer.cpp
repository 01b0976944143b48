#include "online/OnlineServer.h"

#include "brand/Brand.h"
#include "model/shared/modMain.h"
#include "online/opc/DemoServer.h"

namespace tavrin {

std::string_view OnlineServerProgID() { return modMain::globals.gbDemo ? DemoServer::kProgID : OemBrand().progId; }

std::string OnlineItemName(std::string_view device, std::string_view tag) {
  std::string name(device);
  name += '/';
  return name += tag;
}

}  // namespace tavrin
