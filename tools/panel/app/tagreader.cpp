// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/tagreader.h"

#include "tag/tagfields.h"

#include <algorithm>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int lightingMs = 90; // between two fields

bool isSeparator(QChar c)
{
    return c.isSpace() || c == u':' || c == u'-' || c == u'_';
}

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
}

} // namespace

TagReader::TagReader(QObject *parent)
    : QObject(parent)
{
    m_lighting.setInterval(lightingMs);
    connect(&m_lighting, &QTimer::timeout, this, [this] { setLit(m_lit + 1); });
    decode();
}

void TagReader::setText(const QString &text)
{
    QString cleaned = text.toUpper();
    cleaned.removeIf(isSeparator);
    if (cleaned == m_text)
        return;
    m_text = cleaned;
    decode();
}

void TagReader::decode()
{
    const auto wrong = std::find_if_not(m_text.begin(), m_text.end(), isHexDigit);
    m_loadable = !m_text.isEmpty() && wrong == m_text.end();
    m_allBits.clear();
    m_allFields.clear();
    m_layout.clear();
    m_chosen = -1;
    if (m_text.isEmpty()) {
        m_remark = tr("Type or paste the 24 hexadecimal digits of a tag.");
    } else if (wrong != m_text.end()) {
        m_remark = tr("“%1” at place %2 is no hexadecimal digit: use 0 to 9 and A to F.")
                       .arg(QString(*wrong), QString::number(wrong - m_text.begin() + 1));
    } else if (m_text.size() < digits) {
        m_remark = tr("%1 of %2 digits; what is missing counts as zero.").arg(m_text.size()).arg(digits);
    } else if (m_text.size() > digits) {
        m_remark = tr("%1 digits; those behind the 24th are kept and not decoded.").arg(m_text.size());
    }

    const QString decoded = m_loadable ? m_text : QString();
    const SupplyC tag(decoded);
    const ZrSupplyKit::TagLayout places(tag.formatEnum, tag.tagRevision);
    for (const ZrSupplyKit::TagField &field : ZrSupplyKit::tagFields()) {
        const std::optional<ZrSupplyKit::TagBitRange> place = ZrSupplyKit::tagBitsOf(field, places);
        if (!place)
            continue;
        const QString value = field.flag == nullptr ? QString::number(field.value(tag))
                                                    : (field.value(tag) != 0 ? tr("yes") : tr("no"));
        m_allFields.append({field.name(), field.help, place->first, place->width, value, false});
    }
    std::sort(m_allFields.begin(), m_allFields.end(),
              [](const TagFieldRow &a, const TagFieldRow &b) { return a.first < b.first; });
    for (int bit = 0; bit < ZrSupplyKit::tagBitCount; ++bit)
        m_allBits.append({bit, ZrSupplyKit::tagBitsValue(decoded, {bit, 1}) != 0, -1, false, false});
    for (int row = 0; row < m_allFields.size(); ++row) {
        const TagFieldRow &field = m_allFields.at(row);
        for (int bit = field.first; bit < field.first + field.width; ++bit)
            m_allBits[bit].field = row;
    }
    if (m_loadable) {
        m_layout = places.text();
        if (m_text.size() == digits)
            m_remark = tr("A whole tag: %1.").arg(m_layout);
        m_lighting.start();
    } else {
        m_lighting.stop();
    }
    setLit(0);
    Q_EMIT textChanged();
    Q_EMIT chosenChanged();
}

void TagReader::setLit(int fields)
{
    m_lit = std::min(fields, m_loadable ? int(m_allFields.size()) : 0);
    if (m_lit == m_allFields.size())
        m_lighting.stop();
    show();
    Q_EMIT litChanged();
}

void TagReader::lightAll()
{
    setLit(int(m_allFields.size()));
}

void TagReader::setChosen(int field)
{
    if (field == m_chosen)
        return;
    m_chosen = field;
    show();
    Q_EMIT chosenChanged();
}

void TagReader::show()
{
    for (TagBit &bit : m_allBits) {
        bit.isLit = bit.field >= 0 && bit.field < m_lit;
        bit.isChosen = bit.field >= 0 && bit.field == m_chosen;
    }
    for (qsizetype row = 0; row < m_allFields.size(); ++row)
        m_allFields[row].isLit = row < m_lit;
    m_bits.setRows(m_allBits);
    m_fields.setRows(m_allFields);
}

} // namespace panel
