// Observation reports: the fixed forms IOD, UK and RDE, read and written.
#pragma once

#include "observing/observation.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

enum class ReportForm
{
    iod,
    uk,
    rde
};

/// What a line turned out to be. Both parts empty: a comment.
struct ReadLine
{
    std::optional<Observation> observation;
    std::string complaint;  // why a line that looks like a report is none: the columns and what they hold
};

ReadLine readIodLine(std::string_view line);
ReadLine readUkLine(std::string_view line);

struct ReportContent
{
    std::vector<Observation> observations;
    std::vector<std::string> complaints;  // with line numbers, in their order; at most 100
};

/// All reports of a text, whatever their forms. Lines of no form are comments.
ReportContent readReports(std::string_view text);

/// A text with line feeds, or why an observation does not fit into the form.
struct WrittenReport
{
    std::string text;
    std::string complaint;
};

/// A line of 80 columns.
///
/// @param code  of the angles: 1, 2, 3, 7 for right ascension, 4 to 6 for azimuth; one of the other kind counts as the
///              one with the same unit
WrittenReport iodLine(const Observation& observation, int code = 2);

/// A line of 80 columns. The code counts as for IOD, and 7 as 3.
WrittenReport ukLine(const Observation& observation, int code = 2);

/// Blocks from a line with station, month and accuracies to one of 999; a new one begins where any of these changes.
WrittenReport rdeBlocks(std::span<const Observation> observations);

/// The reports in a form; nothing is left out silently.
WrittenReport writeReports(std::span<const Observation> observations, ReportForm form, int code = 2);

/// The year of an epoch code, 0 for of date; nothing for a code that is none.
std::optional<double> equinoxOfCode(char code);

/// The reverse: a blank without a position; nothing for an equinox that has no code.
std::optional<char> epochCodeOf(const Observation& observation);

/// The letters of the n-th piece of a launch, without I and O: 1 is A, 25 is AA; and back (0: none).
std::string pieceLetters(int n);
int pieceNumber(std::string_view letters);
