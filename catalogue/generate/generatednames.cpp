// SPDX-License-Identifier: LGPL-2.1-or-later
#include "generate/generatednames.h"

#include <QtCore/QString>

namespace zrsupply::generatednames {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int shadeCount = 3; // plain, light, dark
constexpr int hueCount = 15;  // each in three shades
constexpr int plainFirst = 3; // white, black and clear have no shades
static_assert(colorCount == plainFirst + shadeCount * hueCount);

constexpr int finishCount = 3; // none said, glossy, matt
constexpr int stuffCount = 8;
static_assert(materialCount == finishCount * stuffCount);

constexpr auto formatWordCount = size_t(FormatWord::Sleeve) + 1;

/// The words of a language. Each list has the same order in all of them; in a pattern %1 stands for the word, in
/// small letters unless it comes first.
struct Language
{
    const char *code;
    std::array<const char *, plainFirst + hueCount> colors;
    std::array<const char *, shadeCount> shades;
    std::array<const char *, stuffCount> materials;
    std::array<const char *, finishCount> finishes;
    std::array<const char *, ribbonTypeCount> ribbonTypes;
    std::array<const char *, formatWordCount> formats;
};

constexpr std::array languages = {
    Language{"en",
             {"White", "Black", "Clear", "Red", "Orange", "Yellow", "Green", "Blue", "Purple", "Pink", "Brown",
              "Grey", "Turquoise", "Olive", "Beige", "Gold", "Silver", "Copper"},
             {"%1", "Light %1", "Dark %1"},
             {"Vinyl", "Polyester", "Polypropylene", "Polyethylene", "Polycarbonate", "Paper", "Nylon", "Acrylic"},
             {"%1", "Glossy %1", "Matt %1"},
             {"Resin", "Wax", "Wax-resin", "Metallic", "Textile"},
             {"Continuous", "Striped", "Tag", "Die-cut", "Nameplate", "Raised panel", "Wrap", "Flag", "Sleeve"}},
    Language{"de",
             {"Weiß", "Schwarz", "Transparent", "Rot", "Orange", "Gelb", "Grün", "Blau", "Lila", "Rosa", "Braun",
              "Grau", "Türkis", "Oliv", "Beige", "Gold", "Silber", "Kupfer"},
             {"%1", "Hell%1", "Dunkel%1"},
             {"Vinyl", "Polyester", "Polypropylen", "Polyethylen", "Polycarbonat", "Papier", "Nylon", "Acryl"},
             {"%1", "%1, glänzend", "%1, matt"},
             {"Harz", "Wachs", "Wachs-Harz", "Metallic", "Textil"},
             {"Endlos", "Gestreift", "Anhänger", "Gestanzt", "Typenschild", "Erhabenes Schild", "Wickeletikett",
              "Fahnenetikett", "Schlauch"}},
    Language{
        "fr",
        {"Blanc", "Noir", "Transparent", "Rouge", "Orange", "Jaune", "Vert", "Bleu", "Violet", "Rose", "Marron",
         "Gris", "Turquoise", "Olive", "Beige", "Or", "Argent", "Cuivre"},
        {"%1", "%1 clair", "%1 foncé"},
        {"Vinyle", "Polyester", "Polypropylène", "Polyéthylène", "Polycarbonate", "Papier", "Nylon", "Acrylique"},
        {"%1", "%1 brillant", "%1 mat"},
        {"Résine", "Cire", "Cire-résine", "Métallisé", "Textile"},
        {"Continu", "Rayé", "Étiquette à attacher", "Découpé", "Plaque signalétique", "Plaque en relief",
         "Étiquette enroulable", "Étiquette drapeau", "Manchon"}},
    Language{"es",
             {"Blanco", "Negro", "Transparente", "Rojo", "Naranja", "Amarillo", "Verde", "Azul", "Morado", "Rosa",
              "Marrón", "Gris", "Turquesa", "Oliva", "Beige", "Dorado", "Plateado", "Cobre"},
             {"%1", "%1 claro", "%1 oscuro"},
             {"Vinilo", "Poliéster", "Polipropileno", "Polietileno", "Policarbonato", "Papel", "Nailon", "Acrílico"},
             {"%1", "%1 brillante", "%1 mate"},
             {"Resina", "Cera", "Cera-resina", "Metalizado", "Textil"},
             {"Continuo", "Con franja", "Etiqueta colgante", "Troquelado", "Placa de características",
              "Placa en relieve", "Etiqueta envolvente", "Etiqueta bandera", "Manguito"}},
    Language{"ja",
             {"白", "黒", "透明", "赤", "オレンジ", "黄", "緑", "青", "紫", "ピンク", "茶", "グレー", "ターコイズ",
              "オリーブ", "ベージュ", "金", "銀", "銅"},
             {"%1", "明るい%1", "暗い%1"},
             {"ビニール", "ポリエステル", "ポリプロピレン", "ポリエチレン", "ポリカーボネート", "紙", "ナイロン",
              "アクリル"},
             {"%1", "光沢%1", "つや消し%1"},
             {"レジン", "ワックス", "ワックスレジン", "メタリック", "テキスタイル"},
             {"連続", "ストライプ", "タグ", "ダイカット", "銘板", "浮き出しパネル", "巻き付けラベル",
              "フラッグラベル", "スリーブ"}},
    Language{"ar",
             {"أبيض", "أسود", "شفاف", "أحمر", "برتقالي", "أصفر", "أخضر", "أزرق", "بنفسجي", "وردي", "بني", "رمادي",
              "فيروزي", "زيتوني", "بيج", "ذهبي", "فضي", "نحاسي"},
             {"%1", "%1 فاتح", "%1 داكن"},
             {"فينيل", "بوليستر", "بولي بروبيلين", "بولي إيثيلين", "بولي كربونات", "ورق", "نايلون", "أكريليك"},
             {"%1", "%1 لامع", "%1 مطفي"},
             {"راتنج", "شمع", "شمع وراتنج", "معدني", "نسيج"},
             {"متصل", "مخطط", "بطاقة معلقة", "مقصوص", "لوحة تعريف", "لوحة بارزة", "ملصق ملفوف", "ملصق علم", "غلاف"}},
    Language{"it",
             {"Bianco", "Nero", "Trasparente", "Rosso", "Arancione", "Giallo", "Verde", "Blu", "Viola", "Rosa",
              "Marrone", "Grigio", "Turchese", "Oliva", "Beige", "Oro", "Argento", "Rame"},
             {"%1", "%1 chiaro", "%1 scuro"},
             {"Vinile", "Poliestere", "Polipropilene", "Polietilene", "Policarbonato", "Carta", "Nylon", "Acrilico"},
             {"%1", "%1, finitura lucida", "%1, finitura opaca"},
             {"Resina", "Cera", "Cera-resina", "Metallizzato", "Tessile"},
             {"Continuo", "A strisce", "Cartellino", "Fustellato", "Targhetta", "Pannello in rilievo",
              "Etichetta avvolgente", "Etichetta a bandiera", "Guaina"}},
    Language{"nl",
             {"Wit", "Zwart", "Transparant", "Rood", "Oranje", "Geel", "Groen", "Blauw", "Paars", "Roze", "Bruin",
              "Grijs", "Turquoise", "Olijf", "Beige", "Goud", "Zilver", "Koper"},
             {"%1", "Licht%1", "Donker%1"},
             {"Vinyl", "Polyester", "Polypropyleen", "Polyethyleen", "Polycarbonaat", "Papier", "Nylon", "Acryl"},
             {"%1", "%1, glanzend", "%1, mat"},
             {"Hars", "Was", "Was-hars", "Metallic", "Textiel"},
             {"Doorlopend", "Gestreept", "Hanglabel", "Gestanst", "Typeplaatje", "Reliëfplaat", "Wikkellabel",
              "Vlaglabel", "Huls"}},
    Language{"pl",
             {"Biały", "Czarny", "Przezroczysty", "Czerwony", "Pomarańczowy", "Żółty", "Zielony", "Niebieski",
              "Fioletowy", "Różowy", "Brązowy", "Szary", "Turkusowy", "Oliwkowy", "Beżowy", "Złoty", "Srebrny",
              "Miedziany"},
             {"%1", "Jasno%1", "Ciemno%1"},
             {"Winyl", "Poliester", "Polipropylen", "Polietylen", "Poliwęglan", "Papier", "Nylon", "Akryl"},
             {"%1", "%1 błyszczący", "%1 matowy"},
             {"Żywica", "Wosk", "Wosk z żywicą", "Metaliczna", "Tekstylna"},
             {"Ciągły", "W paski", "Zawieszka", "Wykrawany", "Tabliczka znamionowa", "Tabliczka wypukła",
              "Etykieta owijana", "Etykieta flagowa", "Koszulka"}},
    Language{"sv",
             {"Vit", "Svart", "Transparent", "Röd", "Orange", "Gul", "Grön", "Blå", "Lila", "Rosa", "Brun", "Grå",
              "Turkos", "Oliv", "Beige", "Guld", "Silver", "Koppar"},
             {"%1", "Ljus%1", "Mörk%1"},
             {"Vinyl", "Polyester", "Polypropen", "Polyeten", "Polykarbonat", "Papper", "Nylon", "Akryl"},
             {"%1", "%1, blank", "%1, matt"},
             {"Harts", "Vax", "Vax-harts", "Metallic", "Textil"},
             {"Kontinuerlig", "Randig", "Hängetikett", "Stansad", "Märkskylt", "Upphöjd skylt", "Lindningsetikett",
              "Flaggetikett", "Hylsa"}},
};

/// In the order of the colours' words.
constexpr std::array rgbOfWord = {0xFFFFFF, 0x000000, 0xF4F8FA, 0xD22630, 0xFF7A00, 0xFFD100,
                                  0x00843D, 0x0057B8, 0x6A2C91, 0xF48FB1, 0x7B4A21, 0x8A8D8F,
                                  0x00A5A8, 0x708238, 0xE1C699, 0xC9A227, 0xC0C0C0, 0xB87333};
static_assert(rgbOfWord.size() == plainFirst + hueCount);

bool isKnown(int language)
{
    return size_t(language) < languages.size();
}

const Language &wordsOf(int language)
{
    return languages[isKnown(language) ? size_t(language) : 0];
}

QByteArray named(int language, const QString &name)
{
    return isKnown(language) ? name.toUtf8() : name.toUtf8() + " (" + languageCode(language) + ')';
}

/// Only the first letter of a name is a capital one.
QByteArray named(int language, const char *pattern, const char *word)
{
    const QString around = QString::fromUtf8(pattern);
    const QString inside = QString::fromUtf8(word);
    return named(language, around.arg(around.startsWith(u'%') ? inside : inside.toLower()));
}

/// Which of a colour's words, and in which shade.
struct Shade
{
    int word;
    int shade;
};

Shade shadeOf(int number)
{
    if (number < plainFirst)
        return {number, 0};
    return {plainFirst + (number - plainFirst) % hueCount, (number - plainFirst) / hueCount};
}

} // namespace

QByteArray languageCode(int language)
{
    if (isKnown(language))
        return wordsOf(language).code;
    const int number = language - int(languages.size());
    return QByteArray("q") + char('a' + number / 26) + char('a' + number % 26);
}

QByteArray color(int language, int number)
{
    const Language &words = wordsOf(language);
    const Shade of = shadeOf(number);
    return named(language, words.shades[size_t(of.shade)], words.colors[size_t(of.word)]);
}

int colorRgb(int number)
{
    constexpr std::array towards = {0x00, 0xFF, 0x00}; // light is halfway to white, dark halfway to black
    const Shade of = shadeOf(number);
    const int plain = rgbOfWord[size_t(of.word)];
    if (of.shade == 0)
        return plain;
    const int other = towards[size_t(of.shade)];
    const auto mixed = [plain, other](int shift) { return (((plain >> shift & 0xFF) + other) / 2) << shift; };
    return mixed(16) | mixed(8) | mixed(0);
}

QByteArray material(int language, int number)
{
    const Language &words = wordsOf(language);
    return named(language, words.finishes[size_t(number / stuffCount)], words.materials[size_t(number % stuffCount)]);
}

QByteArray format(int language, int number)
{
    const Format &known = formats[size_t(number)];
    QString name = QString::fromUtf8(wordsOf(language).formats[size_t(known.word)]);
    if (known.word == FormatWord::Wrap) // there are many: told apart by their codes, as a catalogue of parts does
        name += u' ' + QString::number(known.id);
    return named(language, name);
}

QByteArray ribbonType(int language, int number)
{
    return named(language, QString::fromUtf8(wordsOf(language).ribbonTypes[size_t(number)]));
}

} // namespace zrsupply::generatednames
