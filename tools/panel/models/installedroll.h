// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/factsmodel.h"
#include "models/rollgeometry.h"

#include <QtCore/QObject>
#include <QtGui/QColor>
#include <QtQml/qqmlregistration.h>

class ZrSupplyDatabase;

namespace panel {

/// The roll that is installed, as the library answers it.
class InstalledRoll : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(bool installed READ isInstalled NOTIFY changed)
    Q_PROPERTY(bool known READ isKnown NOTIFY changed)
    Q_PROPERTY(QString sku READ sku NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString description READ description NOTIFY changed)
    Q_PROPERTY(panel::FactsModel *facts READ facts CONSTANT)
    Q_PROPERTY(double fraction READ fraction NOTIFY fractionChanged)
    Q_PROPERTY(QString remainingWord READ remainingWord NOTIFY fractionChanged)
    Q_PROPERTY(QString remainingPercent READ remainingPercent NOTIFY fractionChanged)
    Q_PROPERTY(QString remainingLength READ remainingLength NOTIFY fractionChanged)
    Q_PROPERTY(int fullMileage READ fullMileage NOTIFY changed)
    Q_PROPERTY(int mileage READ mileage NOTIFY fractionChanged)

public:
    explicit InstalledRoll(QObject *parent = nullptr);

    void refresh(ZrSupplyDatabase &library, const QString &printer);
    void refreshFraction(ZrSupplyDatabase &library, int mileage);

    bool isInstalled() const { return m_installed; }
    bool isKnown() const { return m_known; }
    QString sku() const { return m_sku; }
    QString title() const { return m_title; }
    QString description() const { return m_description; }
    FactsModel *facts() { return &m_facts; }
    double fraction() const { return m_fraction; }
    QString remainingWord() const;
    QString remainingPercent() const;
    QString remainingLength() const;
    /// The mileage in millimetres of a full roll, 0 when nothing tells it.
    int fullMileage() const { return m_fullMileage; }
    int mileage() const { return m_mileage; } ///< Millimetres; -1 without a reading.

    const RollShape &shape() const { return m_shape; }
    QColor color() const { return m_color; }             ///< Invalid when it is not known.
    QColor stripeColor() const { return m_stripeColor; } ///< The same.
    bool isLandscape() const { return m_landscape; }
    QByteArray background() const { return m_background; }

Q_SIGNALS:
    void changed();
    void fractionChanged();

private:
    void refreshShape(ZrSupplyDatabase &library);
    void refreshFacts(ZrSupplyDatabase &library, const QString &printer);

    bool m_installed = false;
    bool m_known = false;
    QString m_sku;
    QString m_title;
    QString m_description;
    FactsModel m_facts;
    double m_fraction = -1.0;
    double m_lengthInches = -1.0;
    int m_fullMileage = 0;
    int m_mileage = -1;
    RollShape m_shape;
    QColor m_color;
    QColor m_stripeColor;
    bool m_landscape = false;
    QByteArray m_background;
};

/// A packed RGB as the library answers it; invalid for its -1.
QColor colorOf(int rgb);
/// The mileage at which a supply of this tag length is full.
int fullMileageOf(ZrSupplyDatabase &library, int tagLengthInches);
/// "White Vinyl", whatever of it is known.
QString rollName(ZrSupplyDatabase &library, const QString &sku);
/// "4 in wide, orange stripe of 1 1/2 in, 4 across", whatever of it holds.
QString rollDescription(ZrSupplyDatabase &library, const QString &sku);

} // namespace panel
