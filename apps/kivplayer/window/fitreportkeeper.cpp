#include "apps/kivplayer/window/fitreportkeeper.h"

#include "apps/kivplayer/report/fitreport.h"
#include "apps/kivplayer/report/reportfile.h"

namespace KivPlayer {

void FitReportKeeper::updateState()
{
    Key key;
    for (const auto& [index, actor] : m_context.session.actors())
        key.emplace_back(&actor.dressed.root(), actor.name);
    if (key == m_key)
        return;
    m_key = key;
    const KivTaskCommand::SceneGate::Pass pass(m_context.session.gate());
    m_context.state.fitReport = fitReportOf(m_context.session.actors(), m_context.session.avatar());
}

void FitReportKeeper::write() const
{
    if (m_context.options.report.empty())
        return;
    const KivTaskCommand::SceneGate::Pass pass(m_context.session.gate());
    writeReport(
        m_context.options.report,
        fitReportOf(m_context.session.actors(), m_context.session.avatar(), m_context.console.errors()),
        m_context.console);
}

}  // namespace KivPlayer
