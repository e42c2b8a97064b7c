#include "app/demo/demo_server.h"

#include "app/demo/demo_servers.h"

namespace qv {

DemoServer MakeDemoServer(int variant) { return variant == 2 ? MakeLakesideServer() : MakeHarbourServer(); }

}  // namespace qv
