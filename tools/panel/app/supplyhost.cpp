// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/supplyhost.h"

#include "check/cataloguecheck.h"

#include <QtSql/QSqlDatabase>

#include <utility>

namespace panel {

using namespace Qt::Literals::StringLiterals;

SupplyHost::SupplyHost(QObject *parent)
    : QObject(parent)
{
    // Only hosts announce the printer, so the announcement is what tells which it is.
    connect(&m_library, &ZrSupplyDatabase::printerChangedSignal, this,
            [this](const QString &printer) { m_printer = printer; });
}

SupplyHost::~SupplyHost() = default;

void SupplyHost::startSession(const QString &catalogue)
{
    m_startCatalogue = catalogue;
    m_session = std::make_unique<ZrSupplyKit::SessionHost>(m_library, m_startCatalogue, QString(),
                                                           &QSqlDatabase::removeDatabase);
    m_session->addTranscript(m_log);
    m_session->addTranscript(*this);
}

std::optional<ZrSupplyKit::Failure> SupplyHost::openCatalogue(const QString &path)
{
    if (auto problem = zrsupply::catalogueProblem(path))
        return problem;
    // A session plays on the catalogue that it is started with, so the first one is not an event of it.
    if (!m_session) {
        if (!m_library.setup(path)) {
            return ZrSupplyKit::Failure{ZrSupplyKit::Status::Failed,
                                        tr("%1 cannot be opened").arg(path),
                                        tr("try again; it could be read a moment ago"),
                                        {}};
        }
        m_cataloguePath = path;
        startSession(path);
        Q_EMIT stateChanged();
        return {};
    }
    return run(u"catalogue "_s + ZrSupplyKit::literal(path));
}

std::optional<ZrSupplyKit::Failure> SupplyHost::run(const QString &line, int number)
{
    std::optional<ZrSupplyKit::Failure> problem;
    if (!m_session) {
        // Without a catalogue everything is answered from defaults, and a replay has to do without one too.
        startSession({});
        m_session->run(0, u"catalogue closed"_s);
    }
    try {
        m_session->run(number, line);
    } catch (const ZrSupplyKit::Failure &failure) {
        problem = failure;
    }
    if (std::exchange(m_onlyMileage, false))
        Q_EMIT fractionsChanged();
    else
        Q_EMIT stateChanged();
    return problem;
}

bool SupplyHost::takeEnd()
{
    if (!m_session || !m_session->hasEnded())
        return false;
    startSession(m_startCatalogue);
    return true;
}

void SupplyHost::call(const ZrSupplyKit::MethodCall &call)
{
    const QString name = call.name();
    const QVariant first = call.arguments.value(0);
    m_onlyMileage = name.endsWith("Mileage"_L1);
    if (m_onlyMileage) {
        const size_t place = name.contains("Ribbon1"_L1) ? 1 : name.contains("Ribbon2"_L1) ? 2 : 0;
        m_mileages.at(place) = first.toInt();
    }
    if (name == "setLanguageId"_L1)
        m_language = first.toInt();
    else if (name == "setup"_L1)
        m_cataloguePath = first.toString();
    if ((name == "setSupplyId"_L1 || name == "updateSupplyId"_L1) && first.toString() == unsetString) {
        m_language = 0;
        m_mileages.fill(-1);
    }
}

void SupplyHost::begin(const ZrSupplyKit::SessionEvent &event)
{
    // Closing is the one thing that a session does outside of the library's methods.
    if (event.word == "catalogue"_L1 && event.arguments.constFirst().raw == "closed"_L1)
        m_cataloguePath.clear();
}

} // namespace panel
