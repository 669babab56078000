// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "app/sessionplayer.h"
#include "app/supplyhost.h"
#include "app/tagreader.h"
#include "models/bannermodel.h"
#include "models/cataloguemodel.h"
#include "models/installedribbon.h"
#include "models/installedroll.h"
#include "models/languages.h"
#include "models/logmodel.h"

#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>

namespace panel {

/// What the window shows and what a person can do in it.
class Controller : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Panel)
    QML_UNCREATABLE("The program makes it")

    Q_PROPERTY(panel::InstalledRoll *roll READ roll CONSTANT)
    Q_PROPERTY(panel::InstalledRibbon *ribbon1 READ ribbon1 CONSTANT)
    Q_PROPERTY(panel::InstalledRibbon *ribbon2 READ ribbon2 CONSTANT)
    Q_PROPERTY(panel::BannerModel *banners READ banners CONSTANT)
    Q_PROPERTY(panel::CatalogueModel *rolls READ rolls CONSTANT)
    Q_PROPERTY(panel::CatalogueModel *ribbons READ ribbons CONSTANT)
    Q_PROPERTY(panel::LanguageModel *languages READ languages CONSTANT)
    Q_PROPERTY(panel::LogModel *log READ log CONSTANT)
    Q_PROPERTY(panel::TagReader *tag READ tag CONSTANT)

    Q_PROPERTY(QString catalogueName READ catalogueName NOTIFY changed)
    Q_PROPERTY(QString cataloguePath READ cataloguePath NOTIFY changed)
    Q_PROPERTY(int languageRow READ languageRow NOTIFY changed)
    Q_PROPERTY(bool rightToLeft READ isRightToLeft NOTIFY changed)
    Q_PROPERTY(QStringList printers READ printers CONSTANT)
    Q_PROPERTY(int printerRow READ printerRow NOTIFY changed)
    Q_PROPERTY(bool playing READ isPlaying NOTIFY playingChanged)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(double speed READ speed WRITE setSpeed NOTIFY speedChanged)
    Q_PROPERTY(int appearance READ appearance WRITE setAppearance NOTIFY appearanceChanged)
    Q_PROPERTY(bool dark READ isDark NOTIFY appearanceChanged)

public:
    enum Appearance { FollowSystem, Light, Dark };
    Q_ENUM(Appearance)

    explicit Controller(QObject *parent = nullptr);

    InstalledRoll *roll() { return &m_roll; }
    InstalledRibbon *ribbon1() { return &m_ribbon1; }
    InstalledRibbon *ribbon2() { return &m_ribbon2; }
    BannerModel *banners() { return &m_banners; }
    CatalogueModel *rolls() { return &m_rolls; }
    CatalogueModel *ribbons() { return &m_ribbons; }
    LanguageModel *languages() { return &m_languages; }
    LogModel *log() { return &m_host.log(); }
    TagReader *tag() { return &m_tag; }
    ZrSupplyDatabase &library() { return m_host.library(); }

    QString catalogueName() const;
    QString cataloguePath() const { return m_host.cataloguePath(); }
    int languageRow() const { return m_languages.rowOf(m_host.language()); }
    bool isRightToLeft() const { return m_languages.isRightToLeft(m_host.language()); }
    QStringList printers() const;
    int printerRow() const;
    bool isPlaying() const { return m_player.isPlaying(); }
    double progress() const { return m_player.progress(); }
    double speed() const { return m_speed; }
    void setSpeed(double speed);
    int appearance() const { return m_appearance; }
    void setAppearance(int appearance);
    bool isDark() const;

    // Acts. Each goes through the library's own methods, and what does not work becomes a banner.

    Q_INVOKABLE void openCatalogue(const QString &path);
    Q_INVOKABLE void openCatalogueUrl(const QUrl &url) { openCatalogue(url.toLocalFile()); }
    /// A roll of the catalogue, by the tag that the catalogue has for it.
    Q_INVOKABLE void loadRoll(const QString &sku);
    /// The tag that has been typed.
    Q_INVOKABLE void loadTag();
    /// Puts the installed roll's tag where tags are typed.
    Q_INVOKABLE void showInstalledTag();
    /// A ribbon of the catalogue into station 1 or 2; an empty SKU takes the ribbon out.
    Q_INVOKABLE void loadRibbon(int station, const QString &sku);
    /// -1: no reading.
    Q_INVOKABLE void setRollMileage(int mm);
    Q_INVOKABLE void setRibbonMileage(int station, int mm);
    Q_INVOKABLE void chooseLanguage(int row);
    Q_INVOKABLE void choosePrinter(int row);
    Q_INVOKABLE void runChecks();
    /// Takes everything out. The language stays as a person chose it, which the library's own reset does not keep.
    Q_INVOKABLE void reset();
    Q_INVOKABLE void saveSession(const QString &path);
    Q_INVOKABLE void saveSessionUrl(const QUrl &url) { saveSession(url.toLocalFile()); }
    /// From a printer in which nothing is installed.
    Q_INVOKABLE void playSession(const QString &path);
    Q_INVOKABLE void playSessionUrl(const QUrl &url) { playSession(url.toLocalFile()); }
    Q_INVOKABLE void stopPlaying();
    Q_INVOKABLE void dismissMishap() { m_banners.dismissMishap(); }
    /// Of a file that was dropped: a session plays, anything else has to be a catalogue.
    Q_INVOKABLE void takeFile(const QUrl &url);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void changed();
    void playingChanged();
    void progressChanged();
    void speedChanged();
    void appearanceChanged();

private:
    bool act(const QString &line);
    void refresh();
    void refreshFractions();
    void readFractions();
    void refreshBanners();
    void reinstall();
    void takeOut();
    void mishap(const QString &title, const ZrSupplyKit::Failure &failure);
    QString ribbonId(const QString &sku);

    SupplyHost m_host;
    InstalledRoll m_roll;
    InstalledRibbon m_ribbon1{1};
    InstalledRibbon m_ribbon2{2};
    BannerModel m_banners;
    CatalogueModel m_rolls;
    CatalogueModel m_ribbons;
    LanguageModel m_languages;
    TagReader m_tag;
    SessionPlayer m_player;
    double m_speed = 1.0;
    int m_appearance = FollowSystem;
    std::optional<QString> m_listedCatalogue; // what the lists of rolls, ribbons and languages are of
    int m_listedLanguage = 0;
    QString m_levels; // as the banners were made of
};

} // namespace panel
