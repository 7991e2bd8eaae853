// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Switches, lists, texts and buttons.
#include "viewer/cameras/ValueEditor.h"

#include "viewer/cameras/NumberEditor.h"

#include <QtCore/QEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace vistrel {

namespace {

class SwitchEditor : public ValueEditor {
public:
    explicit SwitchEditor(QWidget* parent)
        : ValueEditor(parent)
        , m_box(new QCheckBox(this))
    {
        setParts({m_box});
        connect(m_box, &QCheckBox::clicked, this, [this](bool on) { Q_EMIT entered(on); });
    }
    void showState(const FeatureState& state) override
    {
        m_box->setEnabled(state.isWritable);
        m_box->setChecked(asBoolean(state.value).value_or(false));
    }

private:
    QCheckBox* m_box;
};

class EntryEditor : public ValueEditor {
public:
    explicit EntryEditor(QWidget* parent)
        : ValueEditor(parent)
        , m_box(new QComboBox(this))
    {
        m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        setParts({m_box});
        connect(m_box, &QComboBox::activated, this, [this](int index) {
            if (index < m_entries.size())
                Q_EMIT entered(m_entries[index].value);
        });
    }
    void showState(const FeatureState& state) override
    {
        m_box->setEnabled(state.isWritable);
        if (m_box->view()->isVisible())
            return;
        showEntries(state.entries);
        int index = -1;
        for (int i = 0; i < m_entries.size(); ++i)
            if (m_entries[i].value == state.value)
                index = i;
        // A value that the list has no name for is none of its entries.
        m_box->setPlaceholderText(state.reason.isEmpty() ? tr("other") : QString());
        m_box->setCurrentIndex(index);
    }

private:
    void showEntries(const QList<FeatureEntry>& entries)
    {
        QStringList texts;
        for (const FeatureEntry& entry : entries)
            texts.append(entry.text);
        if (texts != m_texts) {
            m_box->clear();
            m_box->addItems(texts);
        }
        m_texts = texts;
        m_entries = entries;
    }

    QComboBox* m_box;
    QList<FeatureEntry> m_entries;
    QStringList m_texts;
};

class TextEditor : public ValueEditor {
public:
    explicit TextEditor(QWidget* parent)
        : ValueEditor(parent)
        , m_line(new QLineEdit(this))
    {
        setParts({m_line});
        connect(m_line, &QLineEdit::editingFinished, this, [this] {
            if (!m_line->isModified())
                return;
            m_line->setModified(false);
            Q_EMIT entered(m_line->text());
        });
    }
    void showState(const FeatureState& state) override
    {
        const QString text = valueText(state.value);
        m_line->setReadOnly(!state.isWritable);
        if (m_line->isModified() || m_line->text() == text)
            return;
        m_line->setText(text);
        m_line->setCursorPosition(0);
    }

private:
    QLineEdit* m_line;
};

class CommandEditor : public ValueEditor {
public:
    explicit CommandEditor(QWidget* parent)
        : ValueEditor(parent)
        , m_button(new QPushButton(tr("Execute"), this))
    {
        setParts({m_button});
        connect(m_button, &QPushButton::clicked, this, [this] { Q_EMIT entered(true); });
    }
    void showState(const FeatureState& state) override { m_button->setEnabled(state.isWritable); }

private:
    QPushButton* m_button;
};

} // namespace

ValueEditor* ValueEditor::make(const FeatureDescription& feature, QWidget* parent)
{
    switch (feature.kind) {
    case FeatureKind::Integer:
    case FeatureKind::Float:
        return new NumberEditor(parent);
    case FeatureKind::Switch:
        return new SwitchEditor(parent);
    case FeatureKind::Enumeration:
        return new EntryEditor(parent);
    case FeatureKind::Command:
        return new CommandEditor(parent);
    case FeatureKind::Text:
        break;
    }
    return new TextEditor(parent);
}

void ValueEditor::setParts(std::initializer_list<QWidget*> parts)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* part : parts) {
        layout->addWidget(part, layout->isEmpty() ? 1 : 0);
        part->setFocusPolicy(Qt::StrongFocus);
        part->installEventFilter(this);
    }
}

bool ValueEditor::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(object)->hasFocus())
        return QWidget::eventFilter(object, event);
    event->ignore();
    return true;
}

} // namespace vistrel
