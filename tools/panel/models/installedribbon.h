// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/factsmodel.h"

#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <QtQml/qqmlregistration.h>

class ZrSupplyDatabase;

namespace panel {

/// A ribbon that is installed, as the library answers it.
class InstalledRibbon : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(int station READ station CONSTANT)
    Q_PROPERTY(bool installed READ isInstalled NOTIFY changed)
    Q_PROPERTY(QString sku READ sku NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString description READ description NOTIFY changed)
    Q_PROPERTY(QVariantList panelColors READ panelColors NOTIFY changed)
    Q_PROPERTY(double widthShare READ widthShare NOTIFY changed)
    Q_PROPERTY(panel::FactsModel *facts READ facts CONSTANT)
    Q_PROPERTY(double fraction READ fraction NOTIFY fractionChanged)
    Q_PROPERTY(QString remainingWord READ remainingWord NOTIFY fractionChanged)
    Q_PROPERTY(QString remainingPercent READ remainingPercent NOTIFY fractionChanged)
    Q_PROPERTY(int fullMileage READ fullMileage NOTIFY changed)
    Q_PROPERTY(int mileage READ mileage NOTIFY fractionChanged)

public:
    explicit InstalledRibbon(int station, QObject *parent = nullptr);

    void refresh(ZrSupplyDatabase &library);
    void refreshFraction(ZrSupplyDatabase &library, int mileage);

    int station() const { return m_station; } ///< 1 or 2.
    bool isInstalled() const { return m_installed; }
    QString sku() const { return m_sku; }
    QString title() const { return m_title; }
    QString description() const { return m_description; }
    QVariantList panelColors() const { return m_panelColors; } ///< An invalid colour where it is not known.
    /// Width by that of the widest roll which a picture shows in full.
    double widthShare() const { return m_widthShare; }
    FactsModel *facts() { return &m_facts; }
    double fraction() const { return m_fraction; }
    QString remainingWord() const;
    QString remainingPercent() const;
    int fullMileage() const { return m_fullMileage; }
    int mileage() const { return m_mileage; } ///< Millimetres; -1 without a reading.

Q_SIGNALS:
    void changed();
    void fractionChanged();

private:
    void refreshFacts(ZrSupplyDatabase &library);

    int m_station;
    bool m_installed = false;
    QString m_sku;
    QString m_title;
    QString m_description;
    QVariantList m_panelColors;
    double m_widthShare = 0.0;
    FactsModel m_facts;
    double m_fraction = -1.0;
    int m_fullMileage = 0;
    int m_mileage = -1;
};

/// "Black and Red Resin"; empty for what the catalogue does not name.
QString ribbonName(ZrSupplyDatabase &library, const QString &sku);
/// "4 1/2 in wide, 2 panels"
QString ribbonDescription(ZrSupplyDatabase &library, const QString &sku);

} // namespace panel
