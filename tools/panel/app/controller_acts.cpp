// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/controller.h"

#include "cli/catalogue.h"
#include "session/literal.h"
#include "supplies/installed.h"
#include "tag/tagfields.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <algorithm>

namespace panel {

using namespace Qt::Literals::StringLiterals;
using ZrSupplyKit::Status;

namespace {

/// A text as a word of a session: bare where it may be, which is how people write SKUs and tags.
QString word(const QString &text)
{
    const bool isPlain = !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == u'-');
    });
    return isPlain ? text : ZrSupplyKit::literal(text);
}

const QString stationName(int station)
{
    return u"ribbon%1"_s.arg(station);
}

} // namespace

bool Controller::act(const QString &line)
{
    const auto problem = m_host.run(line);
    if (problem)
        mishap(tr("That did not work"), *problem);
    return !problem;
}

void Controller::openCatalogue(const QString &path)
{
    if (auto problem = m_host.openCatalogue(path)) {
        // The command's own advice is about its options.
        if (problem->remedy.contains("--catalogue"_L1))
            problem->remedy = tr("choose a catalogue file, for example one that zrsupply catalogue build made");
        log()->addProblem(problem->message);
        mishap(tr("This file cannot be used"), *problem);
        return;
    }
    m_banners.dismissMishap();
    reinstall();
}

/// What is installed is looked up anew, as a host does after its catalogue was replaced.
void Controller::reinstall()
{
    if (library().supplyId() != unsetString)
        act(u"roll "_s + word(library().supplyId()));
    if (m_ribbon1.isInstalled() || m_ribbon2.isInstalled())
        act(u"call supplySetRibbonSKUs "_s + ZrSupplyKit::literal(library().supplyRibbonSKUs()));
}

void Controller::loadRoll(const QString &sku)
{
    const QString id =
        library()
            .getSingleVariantByQuery(u"SELECT supplyId FROM roll WHERE itemNum="_s + zrsupply::sqlText(sku), {})
            .toString();
    // Behind the id a catalogue roll's tag is zero.
    act(u"roll "_s + word(id.isEmpty() ? id : id.leftJustified(ZrSupplyKit::tagDigitCount, u'0')));
    // Rolls that share an id have one tag, of which the library makes one SKU; this one was chosen.
    if (library().supplySKU() != sku) {
        act(u"call setSupplySKU "_s + word(sku));
        act(u"check edge-sensor"_s);
    }
}

void Controller::loadTag()
{
    if (m_tag.isLoadable())
        act(u"roll "_s + word(m_tag.text()));
}

void Controller::showInstalledTag()
{
    const QString id = library().supplyId();
    m_tag.setText(id == unsetString ? QString() : id);
}

QString Controller::ribbonId(const QString &sku)
{
    const QString id = sku == unsetString ? QString() : ZrSupplyKit::gatherRibbon(library(), sku).id;
    return id.isEmpty() ? unsetString : id;
}

void Controller::loadRibbon(int station, const QString &sku)
{
    QStringList skus = {m_ribbon1.sku(), m_ribbon2.sku()};
    skus[station - 1] = sku.isEmpty() ? unsetString : sku;
    act(u"ribbons %1 %2"_s.arg(ribbonId(skus[0]), ribbonId(skus[1])));
}

void Controller::setRollMileage(int mm)
{
    act(u"mileage roll %1"_s.arg(mm));
}

void Controller::setRibbonMileage(int station, int mm)
{
    act(u"mileage %1 %2"_s.arg(stationName(station)).arg(mm));
}

void Controller::chooseLanguage(int row)
{
    const QList<Language> &known = m_languages.rows();
    if (row < 0 || row >= known.size())
        return;
    act(u"language %1"_s.arg(known.at(row).id));
    // The names of a tag are those of the language in which it was read.
    if (ZrSupplyKit::answersFromTag(library().supplySKU()))
        act(u"roll "_s + word(library().supplyId()));
}

void Controller::choosePrinter(int row)
{
    const QString name = row > 0 ? printers().value(row) : QString();
    act(u"call printerChangedSignal "_s + ZrSupplyKit::literal(name));
}

void Controller::runChecks()
{
    act(u"check all"_s);
}

void Controller::takeOut()
{
    act(u"roll "_s + unsetString);
    act(u"ribbons %1 %1"_s.arg(unsetString));
}

void Controller::reset()
{
    const int language = m_host.language();
    takeOut();
    if (language != m_host.language())
        act(u"language %1"_s.arg(language));
}

void Controller::saveSession(const QString &path)
{
    QSaveFile file(path);
    const QString heading = u"# Saved by zrsupply-panel %1; zrsupply replay runs it again.\n# Catalogue: %2\n"_s.arg(
        QCoreApplication::applicationVersion(), m_host.cataloguePath());
    const QByteArray bytes = (heading + log()->session()).toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        mishap(tr("The log is not saved"), {Status::Failed,
                                            u"%1: %2"_s.arg(path, file.errorString()),
                                            tr("choose a folder that you may write to"),
                                            {}});
        return;
    }
    m_banners.setMishap(
        {Severity::Good, u"saved"_s, tr("The log is saved"), path, tr("zrsupply replay runs it again.")});
}

void Controller::playSession(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        mishap(
            tr("This session cannot be played"),
            {Status::Failed, u"%1: %2"_s.arg(path, file.errorString()), tr("choose a file that you may read"), {}});
        return;
    }
    m_player.stop();
    m_banners.dismissMishap();
    // A session begins with a printer that knows nothing. A tag of zeros takes back what a reset leaves of the last.
    act(u"roll \"\""_s);
    takeOut();
    m_player.play(QString::fromUtf8(file.readAll()), m_speed);
}

void Controller::stopPlaying()
{
    m_player.stop();
}

void Controller::takeFile(const QUrl &url)
{
    const QString path = url.toLocalFile();
    if (path.endsWith(".session"_L1))
        playSession(path);
    else
        openCatalogue(path);
}

} // namespace panel
