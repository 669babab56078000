// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>

#include <array>

/// What the things of an invented catalogue are called, and what colour they have. Numbers count from 0.
namespace zrsupply::generatednames {

/// What a format is, as a place in a language's words.
enum class FormatWord { Continuous, Striped, Tag, DieCut, Nameplate, RaisedPanel, Wrap, Flag, Sleeve };

struct Format
{
    int id;
    const char *type;
    FormatWord word;
};

constexpr std::array formats = {
    Format{1, "Continuous", FormatWord::Continuous},
    Format{2, "Striped", FormatWord::Striped},
    Format{3, "Tag", FormatWord::Tag},
    Format{5, "DieCut", FormatWord::DieCut},
    Format{39, "Nameplate", FormatWord::Nameplate},
    Format{40, "RaisedPanel", FormatWord::RaisedPanel},
    Format{41, "Wrap", FormatWord::Wrap},
    Format{42, "Wrap", FormatWord::Wrap},
    Format{43, "Wrap", FormatWord::Wrap},
    Format{44, "Wrap", FormatWord::Wrap},
    Format{45, "Wrap", FormatWord::Wrap},
    Format{46, "Wrap", FormatWord::Wrap},
    Format{47, "Wrap", FormatWord::Wrap},
    Format{48, "Wrap", FormatWord::Wrap},
    Format{49, "Wrap", FormatWord::Wrap},
    Format{50, "Wrap", FormatWord::Wrap},
    Format{51, "Wrap", FormatWord::Wrap},
    Format{52, "Wrap", FormatWord::Wrap},
    Format{53, "Wrap", FormatWord::Wrap},
    Format{54, "Flag", FormatWord::Flag},
    Format{55, "Sleeve", FormatWord::Sleeve},
};

constexpr int colorCount = 48;
constexpr int materialCount = 24;
constexpr int ribbonTypeCount = 5;

/// Ten languages have words of their own. The codes beyond are of the range that is kept free for private use, and
/// their names are the English ones with the code behind them.
QByteArray languageCode(int language);

QByteArray color(int language, int number);
int colorRgb(int number);
QByteArray material(int language, int number);
QByteArray format(int language, int number);
QByteArray ribbonType(int language, int number);

} // namespace zrsupply::generatednames
