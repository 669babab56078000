// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>
#include <vector>

struct sqlite3;

/// The generated catalogues of a run, by number of rolls, and keys that stand in them.
///
/// `scripts/bench` makes the files beforehand and names their folder in ZRSUPPLY_BENCH_CATALOGUES.
class Catalogue
{
public:
    static const Catalogue &ofRolls(long rolls);
    /// The sizes that are there, smallest first.
    static std::vector<long> sizes();

    QString path;
    // A few hundred keys spread over the file, in an order that no cache line helps.
    QStringList rolls;
    QStringList stripedRolls;
    QStringList dieCutRolls;
    QStringList imagedRolls;
    QStringList supplyIds;
    QStringList ribbons;
    QStringList ribbonIds;
    std::vector<int> colors;
    std::vector<int> stripeColors;
    std::vector<int> materials;
    std::vector<int> formats;
    QStringList sensors;

private:
    explicit Catalogue(long rolls);
};

/// A connection of the C interface to a catalogue, read-only, kept open for the process.
sqlite3 *rawConnection(const Catalogue &catalogue);
