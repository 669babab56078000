// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace zrsupply {

/// What the report shows of a catalogue, read in a few statements whatever its size.
struct ReportColor
{
    QString name;
    std::optional<int> rgb;
};

struct ReportRoll
{
    QString sku;
    QString supplyId;
    QString material; ///< "Vinyl (1)"
    int materialId = -1;
    double width = 0.0; ///< Inches, as are the other sizes; 0.0 where there is none.
    int length = 0;     ///< Feet, or labels.
    double labelLength = 0.0;
    double separatorWidth = 0.0;
    double stripeWidth = 0.0;
    ReportColor color;
    ReportColor stripe;
    QString format;
    int formatId = 1;
    QString sensor;
    QString family;
    bool isOffered = true;
    bool isLandscape = false;
    int across = 1;
    QString pictureId;
    qsizetype printing = 0; ///< Row of the matrix.
};

struct ReportPanel
{
    QString type;
    ReportColor color;
};

struct ReportRibbon
{
    QString id;
    QString sku;
    double width = 0.0;
    double length = 0.0;
    QList<ReportPanel> panels;
};

struct ReportPicture
{
    QString id;
    QByteArray svg;
};

struct ReportCell
{
    enum class Verdict { Prints, NoHeat, TooNarrow, Special };

    Verdict verdict;
    QString reason;
};

/// A material in one width, with a cell per ribbon. It decides for all its rolls.
struct ReportPrinting
{
    QString material;
    double width;
    QList<qsizetype> rolls;
    QList<ReportCell> cells;
};

struct ReportData
{
    QString name;
    QString version;
    QList<ReportRoll> rolls;
    QList<ReportRibbon> ribbons;
    QList<ReportPicture> pictures;
    QList<ReportPrinting> printings;
};

/// Names are those of the language, English where it has none. Throws Failure for a file that is no catalogue.
ReportData readReportData(const QString &path, int language);

} // namespace zrsupply
