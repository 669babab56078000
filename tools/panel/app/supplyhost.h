// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/logmodel.h"

#include "text/failure.h"
#include <zrsupplydatabase.h>

#include <QtCore/QObject>

#include <array>
#include <memory>
#include <optional>

namespace panel {

/// The library and the one way in which the panel acts on it: lines of a session, so that whatever a person does is
/// logged, can be saved and can be played again.
class SupplyHost : public QObject, private ZrSupplyKit::Transcript
{
    Q_OBJECT
public:
    explicit SupplyHost(QObject *parent = nullptr);
    ~SupplyHost() override;

    ZrSupplyDatabase &library() { return m_library; }
    LogModel &log() { return m_log; }

    /// The file that is open, empty when none is.
    QString cataloguePath() const { return m_cataloguePath; }
    /// As last set through the library; a reset sets it to 0.
    int language() const { return m_language; }
    /// Millimetres, as last set through the library, of the roll (0) and the ribbons (1, 2); -1 without a reading.
    int mileage(int place) const { return m_mileages.at(size_t(place)); }
    /// The model name that was announced last.
    QString printer() const { return m_printer; }

    /// Looks at the file before the library does; nothing is called and nothing changes when it cannot be used.
    std::optional<ZrSupplyKit::Failure> openCatalogue(const QString &path);
    /// Carries out a line of a session. `number` is for the message when it is none.
    std::optional<ZrSupplyKit::Failure> run(const QString &line, int number = 0);
    /// Whether the last line was `quit`, and forgets it.
    bool takeEnd();

Q_SIGNALS:
    void stateChanged();     ///< Anything may be different.
    void fractionsChanged(); ///< Only what is left.

private:
    void call(const ZrSupplyKit::MethodCall &call) override;
    void begin(const ZrSupplyKit::SessionEvent &event) override;
    void startSession(const QString &catalogue);

    ZrSupplyDatabase m_library;
    LogModel m_log;
    std::unique_ptr<ZrSupplyKit::SessionHost> m_session;
    QString m_startCatalogue;
    QString m_cataloguePath;
    QString m_printer;
    int m_language = 0;
    std::array<int, 3> m_mileages = {-1, -1, -1};
    bool m_onlyMileage = false; // of the event that is being carried out
};

} // namespace panel
