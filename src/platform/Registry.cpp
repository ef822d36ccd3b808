#include "platform/Registry.h"

namespace ledgora {

Registry &Registry::instance()
{
    static Registry registry;
    return registry;
}

} // namespace ledgora
