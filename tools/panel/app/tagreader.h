// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/tagmodel.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtQml/qqmlregistration.h>

namespace panel {

/// A tag id that somebody types or pastes, field by field.
class TagReader : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QString remark READ remark NOTIFY textChanged)
    Q_PROPERTY(bool loadable READ isLoadable NOTIFY textChanged)
    Q_PROPERTY(QString layout READ layout NOTIFY textChanged)
    Q_PROPERTY(panel::TagBitModel *bits READ bits CONSTANT)
    Q_PROPERTY(panel::TagFieldModel *fields READ fields CONSTANT)
    Q_PROPERTY(int lit READ lit NOTIFY litChanged)
    Q_PROPERTY(int chosen READ chosen WRITE setChosen NOTIFY chosenChanged)

public:
    static constexpr int digits = 24;

    explicit TagReader(QObject *parent = nullptr);

    QString text() const { return m_text; }
    /// Blanks, colons and dashes between the digits are dropped, so that a pasted tag is read as it was printed.
    void setText(const QString &text);
    /// What is to be said of the text: what is wrong with it and what to do, or what it is.
    QString remark() const { return m_remark; }
    bool isLoadable() const { return m_loadable; }
    /// "continuous, revision 0 or 1"
    QString layout() const { return m_layout; }
    TagBitModel *bits() { return &m_bits; }
    TagFieldModel *fields() { return &m_fields; }
    /// How many fields are lit.
    int lit() const { return m_lit; }
    /// The field that is looked at, -1 for none.
    int chosen() const { return m_chosen; }
    void setChosen(int field);
    /// Lights all fields at once.
    Q_INVOKABLE void lightAll();

Q_SIGNALS:
    void textChanged();
    void litChanged();
    void chosenChanged();

private:
    void decode();
    void setLit(int fields);
    void show();

    QString m_text;
    QString m_remark;
    QString m_layout;
    bool m_loadable = false;
    QList<TagBit> m_allBits;
    QList<TagFieldRow> m_allFields;
    TagBitModel m_bits;
    TagFieldModel m_fields;
    int m_lit = 0;
    int m_chosen = -1;
    QTimer m_lighting;
};

} // namespace panel
