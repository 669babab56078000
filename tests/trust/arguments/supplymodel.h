// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QHash>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <functional>
#include <optional>

/// The members of the object, in their order, by the names they have without "m_".
#define ZR_MODEL_MEMBERS(member)                                                                                     \
    member(supplySKU) member(supplyRibbonSKUs) member(supplyLength) member(ribbon1Length) member(ribbon2Length)      \
        member(supplyId) member(supplyUid) member(ribbon1Uid) member(ribbon2Uid) member(supplyMileage)               \
            member(ribbon1Mileage) member(ribbon2Mileage) member(supplySupplyPercent) member(supplyRibbon1Percent)   \
                member(supplyRibbon2Percent) member(supplySupplyRGB) member(supplyRibbon1RGBs)                       \
                    member(supplyRibbon2RGBs) member(ribbon1Type) member(ribbon2Type) member(supplyTagLength)        \
                        member(supplyTagFlagBit9) member(supplySwiftLift) member(supplySecColorWidth)                \
                            member(supplySecColorRGB) member(supplySecColorName) member(supplySecColorNameEn)        \
                                member(supplyTagFlagBit25) member(supplyLengthFeet) member(supplyCachedLength)       \
                                    member(supplyMaterial) member(supplyMaterialName) member(supplyFormat)           \
                                        member(supplyFormatName) member(supplyColorRGB) member(supplyColorName)      \
                                            member(supplyColorNameEn) member(supplyWidth) member(supplyTagRevision)  \
                                                member(supplyTagFlagBit72) member(supplyTagFlagBit73)                \
                                                    member(supplyFormatRev1) member(supplyMultiUpCount)              \
                                                        member(supplyMultiUpGapSize) member(supplyTypeIndex)         \
                                                            member(supplyIsLandscape) member(supplySeparatorWidth)   \
                                                                member(supplyNonContinuousLength) member(languageId)

/// What the members of the object are, in its order.
struct ModelState
{
    QString supplySKU;
    QStringList supplyRibbonSKUs;
    double supplyLength = 0.0;
    double ribbon1Length = 0.0;
    double ribbon2Length = 0.0;
    QString supplyId;
    QString supplyUid;
    QString ribbon1Uid;
    QString ribbon2Uid;
    int supplyMileage = 0;
    int ribbon1Mileage = 0;
    int ribbon2Mileage = 0;
    double supplySupplyPercent = 0.0;
    double supplyRibbon1Percent = 0.0;
    double supplyRibbon2Percent = 0.0;
    QString supplySupplyRGB;
    QStringList supplyRibbon1RGBs;
    QStringList supplyRibbon2RGBs;
    QString ribbon1Type;
    QString ribbon2Type;
    int supplyTagLength = 0;
    bool supplyTagFlagBit9 = false;
    bool supplySwiftLift = false;
    double supplySecColorWidth = 0.0;
    int supplySecColorRGB = 0;
    QString supplySecColorName;
    QString supplySecColorNameEn;
    bool supplyTagFlagBit25 = false;
    int supplyLengthFeet = 0;
    double supplyCachedLength = 0.0;
    int supplyMaterial = 0;
    QString supplyMaterialName;
    int supplyFormat = 0;
    QString supplyFormatName;
    int supplyColorRGB = 0;
    QString supplyColorName;
    QString supplyColorNameEn;
    double supplyWidth = 0.0;
    int supplyTagRevision = 0;
    bool supplyTagFlagBit72 = false;
    bool supplyTagFlagBit73 = false;
    int supplyFormatRev1 = 0;
    int supplyMultiUpCount = 0;
    double supplyMultiUpGapSize = 0.0;
    int supplyTypeIndex = 0;
    bool supplyIsLandscape = false;
    double supplySeparatorWidth = 0.0;
    double supplyNonContinuousLength = 0.0;
    int languageId = 0;
};

/// The rows of a catalogue, asked with bound values over a connection of its own; answers are kept.
class ModelCatalogue
{
public:
    /// First column of the first row; `absent` without a row and without a catalogue.
    QVariant first(const QString &path, const char *sql, const QStringList &values, const QVariant &absent);

private:
    QHash<QString, std::optional<QVariant>> m_answers;
};

/// The object as its contract tells it, without its code: members, answers, and the signals in their order.
class SupplyModel
{
public:
    explicit SupplyModel(ModelCatalogue &catalogue);

    /// Does what the method of this name does. The answer, where the model knows one.
    std::optional<QVariant> call(const QByteArray &method, const QVariantList &arguments);
    void init();
    /// The connection goes, as it does with an object.
    void close();
    /// Writes a signal down; also one that the host itself emits.
    void announce(const QByteArray &signal, const QVariantList &arguments = {});

    const ModelState &state() const { return m; }
    QStringList takeSignals();
    /// Called after each signal is written down, as a slot of the host is.
    std::function<void(const QByteArray &)> afterSignal;

    struct RollLookup;

private:
    std::optional<QVariant> answer(const QByteArray &method, const QVariantList &arguments);
    QVariant ask(const char *sql, const QStringList &values, const QVariant &absent = -1);
    QVariant ofRoll(const QString &sku, const RollLookup &lookup);
    double rollWidth();
    int printParameter(const char *sql, const QString &sku);
    double ribbonWidth(const QString &sku);
    int ribbonRgb(const QString &sku, int panel);
    QString ribbonSku(qsizetype place) const;

    void takeTag(const QString &text);
    void takeSupplyId(const QString &id);
    void supplyRgb();
    void supplyPercent();
    QStringList ribbonsOf(const QStringList &ids);
    void takeRibbons(const QStringList &skus);
    void ribbonLength(int number);
    void ribbonPercent(int number);
    void ribbonRgbs(int number);
    void ribbonType(int number);
    void combination();
    void sensor();
    void tensions();

    ModelState m;
    ModelCatalogue &m_catalogue;
    QString m_path; // of the open catalogue
    QStringList m_lines;
};
