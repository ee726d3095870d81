#include "core/RowTime.h"

namespace driftbox {

QString rowTime(Instant instant)
{
    return instant.toLocalTime().toString(u"MM-dd HH:mm:ss");
}

} // namespace driftbox
