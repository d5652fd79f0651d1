// Observation reports as lists, and in another form.

#include "cli/report_files.h"
#include "cli/tasks.h"
#include "observing/observation_list.h"
#include "observing/report_forms.h"

#include <span>
#include <string>

namespace {

ReportForm reportForm(ListForm form)
{
    return form == ListForm::uk ? ReportForm::uk : form == ListForm::rde ? ReportForm::rde : ReportForm::iod;
}

bool isReport(ListForm form)
{
    return form == ListForm::iod || form == ListForm::uk || form == ListForm::rde;
}

/// The code of the angles: as asked for, or as the line had it that the observation was read from.
int codeOf(const Session& session, const Observation& o)
{
    constexpr int minutes = 2;
    const int read = o.angleCode > 6 && o.angles == SkyAngles::horizontal ? o.angleCode - 3 : o.angleCode;
    return session.request.angleCode > 0 ? session.request.angleCode : read > 0 ? read : minutes;
}

void leaveOut(const Channels& channels, const Observation& o, const std::string& why)
{
    channels.err("vorlix: the observation of line " + std::to_string(o.line) + " is left out: " + why + '\n');
}

void writeLines(const Session& session, const Channels& channels, const std::vector<Observation>& observations,
                Answer& answer)
{
    const ReportForm form = reportForm(session.request.form);
    std::vector<Observation> fitting;
    for (const Observation& o : observations) {
        const WrittenReport line = writeReports(std::span(&o, 1), form, codeOf(session, o));
        if (!line.complaint.empty())
            leaveOut(channels, o, line.complaint);
        else if (form == ReportForm::rde)
            fitting.push_back(o);
        else
            answer.addText(o.mjd, line.text);
    }
    if (!fitting.empty())
        answer.addText(fitting[0].mjd, rdeBlocks(fitting).text);
}

}  // namespace

Problem tellReports(const Session& session, const Channels& channels, Answer& answer)
{
    std::vector<Observation> observations;
    if (const Problem problem = readReportFiles(session, channels, observations))
        return problem;
    if (isReport(session.request.form))
        writeLines(session, channels, observations, answer);
    else
        for (const Observation& o : observations)
            answer.add(o.mjd, observationRow(o));
    return {};
}
