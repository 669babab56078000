// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "generate/generator.h"

#include <array>

namespace zrsupply {

/// What generated rolls have in common when they differ in nothing but their colour: a row of materialwidth.
struct GeneratedProduct
{
    qint64 id = 0;        ///< From 1.
    qint64 firstRoll = 0; ///< From 0.
    int rolls = 0;

    int formatId = 1;
    int materialId = 0;
    int widthSixteenths = 0;
    int lengthFeet = 0;
    int labels = 0;          ///< Along the roll, 0 for continuous media.
    int labelSixteenths = 0; ///< Length of a label, 0 for continuous media.
    int separatorSixteenths = 0;
    int stripeSixteenths = 0; ///< 0 without a stripe.
    int mileageBaseFeet = 0;
    int tagRevision = 0;
    bool swiftLift = false;
    const char *machineId = nullptr;

    bool isStriped() const { return formatId == 2; }
    bool isDieCut() const { return formatId > 2; }
    /// Tags are measured in feet, other die-cut media in labels.
    int length() const { return isDieCut() && formatId != 3 ? labels : lengthFeet; }
};

struct GeneratedRoll
{
    QByteArray itemNum;
    QByteArray supplyId;
    int colorId = 0;
    int stripeColor = 0; ///< color.secId, 0 without a stripe.
    bool landscape = false;
    int nUpCount = 1;
    int sensorId = 0;     ///< 0 without one.
    int backgroundId = 0; ///< 0 without one.
};

struct GeneratedRibbon
{
    int id = 0; ///< From 1, in the order of the SKUs.
    QByteArray sku;
    int panels = 0;
    double width = 0.0;  ///< Inches.
    double length = 0.0; ///< Inches.
    int typeId = 0;
};

/// The rules of an invented catalogue: every row out of its number and the seed.
class GeneratedModel
{
public:
    explicit GeneratedModel(const GeneratorSettings &settings);

    static constexpr int colors = 48;
    static constexpr int stripeColors = 15;
    static constexpr int materials = 24;
    static constexpr int ribbonTypes = 5;
    static constexpr int ribbonColors = 16;
    static constexpr int backgrounds = 8;

    const GeneratorSettings &settings() const { return m_settings; }

    qint64 products() const;
    GeneratedProduct product(qint64 number) const;
    /// `variant` counts the product's rolls from 0.
    GeneratedRoll roll(const GeneratedProduct &product, int variant) const;

    GeneratedRibbon ribbon(int number) const;
    int panelColor(const GeneratedRibbon &ribbon, int panel) const;
    /// Whether a ribbon prints on a material; one ribbon does on all, so that every roll has one.
    bool prints(const GeneratedRibbon &ribbon, int materialId) const;

    /// A number that looks like chance and depends on `what`, `number` and the seed alone.
    quint64 chance(quint64 what, quint64 number) const;
    int chanceBelow(int limit, quint64 what, quint64 number) const
    {
        return int(chance(what, number) % quint64(limit));
    }

    static int colorId(int number);    ///< `number` from 0.
    static int materialId(int number); ///< `number` from 0.

private:
    bool hasNamedRibbons() const;
    void layOutContinuous(GeneratedProduct &product, quint64 place) const;
    void layOutDieCut(GeneratedProduct &product, quint64 place) const;
    quint64 scattered(quint64 number, quint64 space) const;

    GeneratorSettings m_settings;
};

/// The 20 digits under which the catalogue files a roll's tag.
QByteArray generatedSupplyId(const GeneratedProduct &product, int colorId, int stripeColor);

} // namespace zrsupply
