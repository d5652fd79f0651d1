#include "record/wout_data.h"

#include "record/numbers.h"
#include "record/text.h"

namespace {
constexpr char tableMark = '~';

WoutData theOutput;

/// The next line, holding the text; null if the record is full.
char* appendLine(WoutData* out, const char* text, std::size_t longest)
{
    if (out->nlines >= maxReportLines)
        return nullptr;
    char(&line)[reportLineBytes] = out->text[out->nlines++];
    assignField(line, {text, ::strnlen(text, longest)});
    decdot(line);
    return line;
}
}  // namespace

WoutData* outdata = &theOutput;

void PutNxtLn(WoutData* out, const char* text)
{
    appendLine(out, text, layoutMarkByte);
}

void PutNxtLnT(WoutData* out, const char* text)
{
    if (char* const line = appendLine(out, text, layoutMarkByte - 1))
        line[layoutMarkByte] = tableMark;
}

void PutSpace(WoutData* out)
{
    PutNxtLn(out, " ");
}

std::string_view lineText(const WoutData& out, int line)
{
    return {out.text[line], ::strnlen(out.text[line], layoutMarkByte)};
}

LineLayout layoutOf(const WoutData& out, int line)
{
    return out.text[line][layoutMarkByte] == tableMark ? LineLayout::table : LineLayout::running;
}

bool selectable(const WoutData& out, int line)
{
    const std::string_view text = lineText(out, line);
    return !text.empty() && text.front() != ' ';
}
