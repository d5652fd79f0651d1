#include "cli/tasks.h"

#include "imaging/trail_list.h"
#include "observing/field_list.h"
#include "observing/observation_list.h"

ListKind listOf(const Request& request)
{
    switch (request.task) {
    case Task::events:
        return {"events", eventColumns(), "event"};
    case Task::contacts:
        return {"contacts", contactColumns(), "contact"};
    case Task::look:
    case Task::now:
        return {"positions", lookColumns(), ""};
    case Task::track:
        return {"points", trackColumns(), ""};
    case Task::state:
        return {"states", stateColumns(), ""};
    case Task::match:
        return {"matches", matchColumns(), ""};
    case Task::report:
        return {"observations", observationColumns(), ""};
    case Task::fit:
        return {"residuals", residualColumns(), ""};
    case Task::field:
        return request.free ? ListKind{"free_intervals", freeColumns(), ""}
                            : ListKind{"crossings", crossingColumns(), ""};
    case Task::identify:
        return {"trails", trailColumns(), ""};
    case Task::convert:
        return {"", {}, ""};
    default:
        return {"passes", request.wantsBrightness() ? brightPassColumns() : passColumns(), "pass"};
    }
}
