#include "engine/report_lines.h"

#include "app/record/wout_data.h"

void putLines(WoutData* out, std::initializer_list<const char*> lines)
{
    for (const char* line : lines) {
        if (*line)
            PutNxtLn(out, line);
        else
            PutSpace(out);
    }
}
