// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/controller.h"

#include "models/remaining.h"

#include <QtCore/QFileInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Model names as a printer might announce them; the library looks for the families in them.
const QStringList &printerNames()
{
    static const QStringList names = {QString(), u"Quokka 200"_s, u"Ibex 5"_s, u"Marlin 30"_s};
    return names;
}

} // namespace

Controller::Controller(QObject *parent)
    : QObject(parent)
    , m_rolls(CatalogueModel::Kind::Rolls, m_host.library())
    , m_ribbons(CatalogueModel::Kind::Ribbons, m_host.library())
{
    connect(&m_host, &SupplyHost::stateChanged, this, &Controller::refresh);
    connect(&m_host, &SupplyHost::fractionsChanged, this, &Controller::refreshFractions);
    connect(&m_player, &SessionPlayer::playingChanged, this, &Controller::playingChanged);
    connect(&m_player, &SessionPlayer::progressChanged, this, &Controller::progressChanged);
    connect(&m_player, &SessionPlayer::line, this, [this](const QString &text, int number) {
        if (const auto problem = m_host.run(text, number)) {
            m_player.stop();
            log()->addProblem(problem->message);
            mishap(tr("The session stopped"), *problem);
        } else if (m_host.takeEnd()) {
            m_player.stop();
        }
    });
    qApp->installEventFilter(this);
    refresh();
}

QString Controller::catalogueName() const
{
    return m_host.cataloguePath().isEmpty() ? tr("no catalogue") : QFileInfo(m_host.cataloguePath()).fileName();
}

QStringList Controller::printers() const
{
    QStringList names = printerNames();
    names[0] = tr("any printer");
    return names;
}

int Controller::printerRow() const
{
    return int(printerNames().indexOf(m_host.printer()));
}

void Controller::setSpeed(double speed)
{
    if (speed == m_speed)
        return;
    m_speed = speed;
    Q_EMIT speedChanged();
}

void Controller::setAppearance(int appearance)
{
    if (appearance == m_appearance)
        return;
    m_appearance = appearance;
    Q_EMIT appearanceChanged();
}

bool Controller::isDark() const
{
    if (m_appearance != FollowSystem)
        return m_appearance == Dark;
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

bool Controller::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp)
        Q_EMIT appearanceChanged();
    return QObject::eventFilter(watched, event);
}

/// Everything that can be seen is asked for anew: the library keeps the state, the panel only shows it.
void Controller::refresh()
{
    if (m_listedCatalogue != m_host.cataloguePath() || m_listedLanguage != m_host.language()) {
        m_listedCatalogue = m_host.cataloguePath();
        m_listedLanguage = m_host.language();
        m_languages.setRows(languagesOf(library()));
        m_rolls.reload();
        m_ribbons.reload();
    }
    m_roll.refresh(library(), m_host.printer());
    m_ribbon1.refresh(library());
    m_ribbon2.refresh(library());
    readFractions();
    refreshBanners();
    Q_EMIT changed();
}

void Controller::readFractions()
{
    m_roll.refreshFraction(library(), m_host.mileage(0));
    m_ribbon1.refreshFraction(library(), m_host.mileage(1));
    m_ribbon2.refreshFraction(library(), m_host.mileage(2));
}

void Controller::refreshFractions()
{
    readFractions();
    QString levels;
    for (const double fraction : {m_roll.fraction(), m_ribbon1.fraction(), m_ribbon2.fraction()}) {
        const Remaining remaining(fraction);
        // What a banner says changes with the level, and where it is low with the number.
        levels += remaining.word() + (remaining.level() == Remaining::Level::Low ? remaining.percent() : QString());
    }
    if (levels == m_levels)
        return;
    m_levels = levels;
    refreshBanners();
}

void Controller::refreshBanners()
{
    m_banners.setBanners(Banners::of(library(), !m_host.cataloguePath().isEmpty()));
}

void Controller::mishap(const QString &title, const ZrSupplyKit::Failure &failure)
{
    m_banners.setMishap({Severity::Problem, u"mishap"_s, title, sentence(failure.message), sentence(failure.remedy)});
}

} // namespace panel
