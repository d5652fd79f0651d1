#include "elements/omm_forms.h"

#include "elements/characters.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string_view>

class OmmReader::Source
{
public:
    virtual ~Source() = default;
    virtual bool next(OmmMessage& message) = 0;
};

namespace {
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view versionKeyword = "CCSDS_OMM_VERS";
/// With the fields and the version, what a line of keywords or a message can begin with.
constexpr std::array<std::string_view, 4> otherKeywords{"CREATION_DATE", "ORIGINATOR", "MESSAGE_ID",
                                                        "CLASSIFICATION"};
constexpr QLatin1String messageElement("omm");
constexpr std::string_view commentKeyword = "COMMENT";
constexpr int keywordsOfHeader = 3;  // so many make a line of names one of keywords

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// UTF-16 and UTF-32 with a byte order mark become UTF-8; all else stays.
QByteArray asUtf8(const QByteArray& bytes)
{
    const auto encoding = QStringConverter::encodingForData(bytes);
    if (!encoding || *encoding == QStringConverter::Utf8)
        return bytes;
    const QString text = QStringDecoder(*encoding).decode(bytes);
    return text.toUtf8();
}

std::string_view withoutMark(std::string_view text)
{
    return text.substr(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
}

/// Where the first of these characters stands, or the end of the text.
template <char... wanted>
std::size_t findAny(std::string_view text, std::size_t from = 0)
{
    const auto is = [](char c) { return ((c == wanted) || ...); };
    return from + static_cast<std::size_t>(std::find_if(text.begin() + from, text.end(), is) - text.begin() - from);
}

std::string_view fromFirstCharacter(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(blankCharacters), text.size()));
}

bool isKeyword(std::string_view name)
{
    return fieldOf(name) != OmmField::count || name == versionKeyword ||
           std::find(otherKeywords.begin(), otherKeywords.end(), name) != otherKeywords.end();
}

/// The records of a document.
class CsvReader
{
public:
    explicit CsvReader(std::string_view text) : rest(text) {}

    /// The next record that is not a blank line or a comment; false at the end.
    bool next()
    {
        while (!rest.empty()) {
            cells.clear();
            while (takeCell()) {}
            if (cells.size() > 1 || !(trimmed(cells[0]).empty() || trimmed(cells[0])[0] == '#'))
                return true;
        }
        return false;
    }

    std::vector<std::string> cells;

private:
    /// Takes a cell and what ends it; whether another one follows in this record.
    bool takeCell()
    {
        const std::size_t begin = rest.find_first_not_of(" \t");
        if (begin != std::string_view::npos && rest[begin] == '"')
            takeQuoted(begin + 1);
        else
            cells.emplace_back();
        const std::size_t end = findAny<',', '\r', '\n'>(rest);
        cells.back().append(rest.substr(0, end));
        const bool more = end < rest.size() && rest[end] == ',';
        const bool twoBytes = rest.substr(end, 2) == "\r\n";
        rest.remove_prefix(std::min(end + (twoBytes ? 2 : 1), rest.size()));
        return more;
    }

    /// What stands between quotes; two of them are one.
    void takeQuoted(std::size_t begin)
    {
        std::string& cell = cells.emplace_back();
        for (rest.remove_prefix(begin); !rest.empty();) {
            const std::size_t quote = std::min(rest.find('"'), rest.size());
            cell.append(rest.substr(0, quote));
            rest.remove_prefix(std::min(quote + 1, rest.size()));
            if (rest.empty() || rest[0] != '"')
                return;
            cell.push_back('"');
            rest.remove_prefix(1);
        }
    }

    std::string_view rest;
};

bool isHeader(const std::vector<std::string>& cells)
{
    return std::count_if(cells.begin(), cells.end(), [](const auto& c) { return isKeyword(trimmed(c)); }) >=
           keywordsOfHeader;
}

class CsvMessages final : public OmmReader::Source
{
public:
    explicit CsvMessages(const QByteArray& utf8) : text(utf8), reader(withoutMark(viewOf(text))) {}

    bool next(OmmMessage& message) override
    {
        while (reader.next()) {
            const std::vector<std::string>& cells = reader.cells;
            if (isHeader(cells)) {
                columns.resize(cells.size());
                std::transform(cells.begin(), cells.end(), columns.begin(),
                               [](const std::string& cell) { return fieldOf(trimmed(cell)); });
            } else if (cells.size() >= columns.size()) {
                message.clear();
                for (std::size_t i = 0; i < columns.size(); ++i)
                    message.set(columns[i], cells[i]);
                return true;
            }
        }
        return false;
    }

private:
    const QByteArray text;
    CsvReader reader;
    std::vector<OmmField> columns;
};

/// One object after the other out of an array, so that what is cut off or damaged costs no others.
class JsonObjects
{
public:
    explicit JsonObjects(std::string_view text) : rest(text) {}

    /// The text of the next object; empty at the end.
    std::string_view next()
    {
        rest.remove_prefix(std::min(rest.find('{'), rest.size()));
        const std::size_t length = lengthOfObject();
        const std::string_view object = rest.substr(0, length);
        rest.remove_prefix(length);
        return object;
    }

private:
    /// To the brace that closes the first one; 0 if there is none.
    std::size_t lengthOfObject() const
    {
        int depth = 0;
        for (std::size_t i = 0; i < rest.size(); ++i) {
            i = findAny<'{', '}', '"'>(rest, i);
            if (i < rest.size() && rest[i] == '"')
                i = endOfString(i);
            else if (i < rest.size())
                depth += rest[i] == '{' ? 1 : -1;
            if (depth == 0)
                return i + 1;
        }
        return 0;
    }

    /// The closing quote, or the end of the text.
    std::size_t endOfString(std::size_t quote) const
    {
        std::size_t i = findAny<'"', '\\'>(rest, quote + 1);
        while (i < rest.size() && rest[i] == '\\')
            i = findAny<'"', '\\'>(rest, std::min(i + 2, rest.size()));
        return i;
    }

    std::string_view rest;
};

void set(OmmMessage& message, OmmField field, const QJsonValue& value)
{
    if (value.isDouble()) {
        char digits[32];
        const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value.toDouble());
        message.set(field, {digits, static_cast<std::size_t>(end.ptr - digits)});
    } else if (value.isString()) {
        message.set(field, viewOf(value.toString().toUtf8()));
    }
}

/// The values of an object and of those inside it.
void collect(OmmMessage& message, const QJsonObject& object)
{
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (entry->isObject())
            collect(message, entry->toObject());
        else
            set(message, fieldOf(viewOf(entry.key().toLatin1())), *entry);
    }
}

class JsonMessages final : public OmmReader::Source
{
public:
    explicit JsonMessages(const QByteArray& utf8) : text(utf8), objects(withoutMark(viewOf(text))) {}

    bool next(OmmMessage& message) override
    {
        message.clear();
        while (message.empty()) {
            const std::string_view object = objects.next();
            if (object.empty())
                return false;
            const auto bytes = QByteArray::fromRawData(object.data(), static_cast<qsizetype>(object.size()));
            collect(message, QJsonDocument::fromJson(bytes).object());
        }
        return true;
    }

private:
    const QByteArray text;
    JsonObjects objects;
};

/// The field of an element; `count` for any other.
OmmField fieldOfElement(QStringView name)
{
    char keyword[32];
    const auto length = static_cast<std::size_t>(name.size());
    if (length > sizeof keyword)
        return OmmField::count;
    std::transform(name.begin(), name.end(), keyword, [](QChar c) { return c.toLatin1(); });
    return fieldOf(std::string_view(keyword, length));
}

/// The next message that ends; false at the end of the document or at what is no XML. `started` counts those that begin.
bool nextMessage(QXmlStreamReader& reader, OmmMessage& message, int& started)
{
    while (!reader.atEnd()) {
        reader.readNext();
        const bool isMessage = reader.name() == messageElement;
        if (reader.isStartElement() && isMessage) {
            ++started;
            message.clear();
        } else if (reader.isStartElement()) {
            const OmmField field = fieldOfElement(reader.name());
            if (field != OmmField::count)
                message.set(field, viewOf(reader.readElementText(QXmlStreamReader::SkipChildElements).toUtf8()));
        } else if (reader.isEndElement() && isMessage) {
            return true;
        }
    }
    return false;
}

/// Where the next element "omm" begins; -1 if there is none.
qsizetype messageStart(const QByteArray& document, qsizetype from)
{
    qsizetype start = document.indexOf("<omm", from);
    while (start >= 0 && !(start + 4 < document.size() && std::strchr(" \t\r\n>", document[start + 4])))
        start = document.indexOf("<omm", start + 4);
    return start;
}

/// From where the first character of the document stands: nothing may stand in front of the declaration.
QByteArray fromDeclaration(const QByteArray& document)
{
    return document.right(static_cast<qsizetype>(fromFirstCharacter(viewOf(document)).size()));
}

/// One stream from the declaration to the end. What is no XML costs the message it stands in, and no other: those
/// behind it are read each by itself, with the head that all share.
class XmlMessages final : public OmmReader::Source
{
public:
    explicit XmlMessages(const QByteArray& whole) : document(fromDeclaration(whole)), reader(document) {}

    bool next(OmmMessage& message) override
    {
        for (; !nextMessage(reader, message, started); takePiece()) {
            if (!inPieces && !reader.hasError())
                return false;
            if (!inPieces)
                passStarted();
            if (start < 0)
                return false;
        }
        return true;
    }

private:
    /// Goes to the first message that has not begun yet.
    void passStarted()
    {
        inPieces = true;
        start = messageStart(document, 0);
        if (start >= 0 && start <= static_cast<qsizetype>(ommHeadLength))
            head = document.left(start);
        for (int i = 0; i < started && start >= 0; ++i)
            start = messageStart(document, start + 4);
    }

    void takePiece()
    {
        const qsizetype behind = messageStart(document, start + 4);
        reader.clear();
        reader.addData(head + document.mid(start, behind < 0 ? -1 : behind - start));
        start = behind;
    }

    const QByteArray document;
    QXmlStreamReader reader;
    int started = 0;
    bool inPieces = false;
    QByteArray head;
    qsizetype start = -1;  // of the next piece
};

/// The lines of a document, whichever way they end.
class Lines
{
public:
    explicit Lines(std::string_view text) : rest(text) {}

    bool next()
    {
        if (rest.empty())
            return false;
        const std::size_t end = findAny<'\r', '\n'>(rest);
        line = rest.substr(0, end);
        isEnded = end < rest.size();
        rest.remove_prefix(std::min(end + 1, rest.size()));
        return true;
    }

    std::string_view line;
    bool isEnded = false;  // else it may be cut off

private:
    std::string_view rest;
};

struct Assignment
{
    std::string_view keyword, value;
};

/// A line without "=" has no keyword; a unit in brackets at the end is no part of the value of a number.
Assignment assignmentOf(std::string_view line)
{
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos)
        return {};
    Assignment assignment{trimmed(line.substr(0, sign)), trimmed(line.substr(sign + 1))};
    const bool isText = assignment.keyword == keywordOf(OmmField::objectName);
    if (!isText && assignment.value.ends_with(']'))
        assignment.value = trimmed(assignment.value.substr(0, assignment.value.find('[')));
    return assignment;
}

class KvnMessages final : public OmmReader::Source
{
public:
    explicit KvnMessages(const QByteArray& utf8) : text(utf8), lines(withoutMark(viewOf(text))) {}

    bool next(OmmMessage& message) override
    {
        while (lines.next() && lines.isEnded) {
            const Assignment assignment = assignmentOf(lines.line);
            const OmmField field = fieldOf(assignment.keyword);
            const bool begins = assignment.keyword == versionKeyword || (field != OmmField::count && field == first);
            const bool complete = begins && !current.empty();
            if (complete) {
                message = current;
                current.clear();
            }
            if (begins)
                first = OmmField::count;
            first = first == OmmField::count ? field : first;
            current.set(field, assignment.value);
            if (complete)
                return true;
        }
        message = current;
        current.clear();
        return !message.empty();
    }

private:
    const QByteArray text;
    Lines lines;
    OmmMessage current;
    OmmField first = OmmField::count;  // of the current message
};

bool isKvn(std::string_view text)
{
    Lines lines(text);
    while (lines.next() && (trimmed(lines.line).empty() || trimmed(lines.line).starts_with(commentKeyword))) {}
    return isKeyword(assignmentOf(lines.line).keyword);
}

bool isCsv(std::string_view text)
{
    CsvReader reader(text);
    return reader.next() && isHeader(reader.cells);
}

/// A brace or bracket, and behind it what may follow there: a name line can begin with one too.
bool isJson(std::string_view start)
{
    if (start.empty() || (start[0] != '{' && start[0] != '['))
        return false;
    const std::string_view behind = fromFirstCharacter(start.substr(1));
    return !behind.empty() && (start[0] == '{' ? behind[0] == '"' : behind[0] == '{' || behind[0] == ']');
}

bool isXml(std::string_view start)
{
    constexpr std::array<std::string_view, 4> starts{"<?xml", "<!--", "<ndm", "<omm"};
    return std::any_of(starts.begin(), starts.end(), [&](std::string_view s) { return start.starts_with(s); });
}
}  // namespace

OmmForm ommFormOf(const QByteArray& head)
{
    const QByteArray utf8 = asUtf8(head);
    const std::string_view text = withoutMark(viewOf(utf8));
    const std::string_view start = fromFirstCharacter(text);
    if (isJson(start))
        return OmmForm::json;
    if (isXml(start))
        return OmmForm::xml;
    if (isKvn(text))
        return OmmForm::kvn;
    return isCsv(text) ? OmmForm::csv : OmmForm::none;
}

OmmReader::OmmReader(OmmForm form, const QByteArray& document)
{
    switch (form) {
    case OmmForm::csv:
        source = std::make_unique<CsvMessages>(asUtf8(document));
        break;
    case OmmForm::json:
        source = std::make_unique<JsonMessages>(asUtf8(document));
        break;
    case OmmForm::xml:  // it may name its encoding itself
        source = std::make_unique<XmlMessages>(document);
        break;
    case OmmForm::kvn:
        source = std::make_unique<KvnMessages>(asUtf8(document));
        break;
    case OmmForm::none:
        break;
    }
}

OmmReader::~OmmReader() = default;
OmmReader::OmmReader(OmmReader&&) noexcept = default;

bool OmmReader::next(OmmMessage& message)
{
    return source && source->next(message);
}

std::vector<OmmMessage> ommMessages(OmmForm form, const QByteArray& document)
{
    std::vector<OmmMessage> messages;
    OmmReader reader(form, document);
    for (OmmMessage message; reader.next(message);)
        messages.push_back(message);
    return messages;
}
