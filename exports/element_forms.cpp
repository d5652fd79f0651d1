#include "exports/element_forms.h"

#include "elements/omm_csv.h"
#include "exports/rows.h"
#include "exports/time_text.h"
#include "record/text.h"

#include <QString>
#include <array>
#include <cstddef>
#include <initializer_list>

namespace {

using Fields = std::initializer_list<OmmField>;

constexpr std::array textFields{OmmField::objectName, OmmField::objectId, OmmField::epoch,
                                OmmField::classificationType};

bool isText(OmmField field)
{
    for (const OmmField text : textFields)
        if (field == text)
            return true;
    return false;
}

constexpr Fields elementFields{OmmField::epoch,       OmmField::meanMotion,  OmmField::eccentricity,
                               OmmField::inclination, OmmField::raOfAscNode, OmmField::argOfPericenter,
                               OmmField::meanAnomaly};
constexpr Fields lineFields{OmmField::ephemerisType, OmmField::classificationType, OmmField::noradCatId,
                            OmmField::elementSetNo,  OmmField::revAtEpoch,         OmmField::bstar,
                            OmmField::meanMotionDot, OmmField::meanMotionDdot};

struct Metadata
{
    const char* keyword;
    const char* value;
};
constexpr std::array metadata{Metadata{"CENTER_NAME", "EARTH"}, Metadata{"REF_FRAME", "TEME"},
                              Metadata{"TIME_SYSTEM", "UTC"}, Metadata{"MEAN_ELEMENT_THEORY", "SGP4"}};

std::string xmlElement(std::string_view keyword, const std::string& value)
{
    const std::string name(keyword);
    return '<' + name + '>' + textQString(value).toHtmlEscaped().toStdString() + "</" + name + '>';
}

std::string xmlFields(const OmmMessage& message, Fields fields)
{
    std::string text;
    for (const OmmField field : fields)
        if (!message[field].empty())
            text += xmlElement(keywordOf(field), message[field]);
    return text;
}

std::string kvnLine(std::string_view keyword, const std::string& value)
{
    return std::string(keyword) + " = " + value + '\n';
}

std::string kvnFields(const OmmMessage& message, Fields fields)
{
    std::string text;
    for (const OmmField field : fields)
        if (!message[field].empty())
            text += kvnLine(keywordOf(field), message[field]);
    return text;
}

}  // namespace

MessageFrame csvFrame()
{
    return {ommHeader(), "", ""};
}

std::string csvMessage(const OmmMessage& message)
{
    return ommLine(message);
}

MessageFrame jsonFrame()
{
    return {"[\n", ",\n", "\n]\n"};
}

MessageFrame xmlFrame()
{
    return {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ndm>\n", "", "</ndm>\n"};
}

MessageFrame kvnFrame()
{
    return {"", "\n", ""};
}

std::string jsonMessage(const OmmMessage& message)
{
    std::string object = "{";
    for (std::size_t i = 0; i < ommFieldCount; ++i) {
        const auto field = static_cast<OmmField>(i);
        const std::string& value = message[field];
        if (value.empty())
            continue;
        object += (object.size() > 1 ? ", " : "") + jsonString(keywordOf(field)) + ": ";
        object += isText(field) ? jsonString(value) : value;
    }
    return object + "}";
}

std::string xmlMessage(const OmmMessage& message, double created)
{
    std::string text = "<omm id=\"CCSDS_OMM_VERS\" version=\"3.0\"><header>" +
                       xmlElement("CREATION_DATE", isoMicroseconds(created)) +
                       "<ORIGINATOR>VORLIX</ORIGINATOR></header>\n<body><segment><metadata>" +
                       xmlFields(message, {OmmField::objectName, OmmField::objectId});
    for (const Metadata& row : metadata)
        text += xmlElement(row.keyword, row.value);
    return text + "</metadata>\n<data><meanElements>" + xmlFields(message, elementFields) +
           "</meanElements>\n<tleParameters>" + xmlFields(message, lineFields) +
           "</tleParameters></data></segment></body></omm>\n";
}

std::string kvnMessage(const OmmMessage& message, double created)
{
    std::string text = "CCSDS_OMM_VERS = 3.0\n" + kvnLine("CREATION_DATE", isoMicroseconds(created)) +
                       "ORIGINATOR = VORLIX\n" + kvnFields(message, {OmmField::objectName, OmmField::objectId});
    for (const Metadata& row : metadata)
        text += kvnLine(row.keyword, row.value);
    return text + kvnFields(message, elementFields) + kvnFields(message, lineFields);
}
