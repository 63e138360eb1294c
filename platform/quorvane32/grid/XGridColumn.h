#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace quorvane {

/// The settings of one grid column. A change shows at once.
class XGridColumn {
public:
    enum Alignment : int { LeftCentre = 1, RightCentre = 7 };
    enum Kind : int { Text = 1, List = 3 };

    explicit XGridColumn(std::function<void()> changed) : m_changed(std::move(changed)) {}

    const QString& caption() const { return m_caption; }
    void setCaption(const QString& caption);

    /// Width in twips (1/15 pixel at 96 dpi); 0 hides the column.
    int width() const { return m_width; }
    void setWidth(int twips);

    int alignment() const { return m_alignment; }
    void setAlignment(int alignment);

    bool readOnly() const { return m_readOnly; }
    void setReadOnly(bool readOnly);

    int kind() const { return m_kind; }
    void setKind(int kind);

    /// A text here puts a small button with it into the column's cells; "" takes it away.
    const QString& buttonText() const { return m_buttonText; }
    void setButtonText(const QString& text);

    /// The choices of a list column: their number, and each by its index from 0 (error 9 outside).
    int listSize() const { return static_cast<int>(m_list.size()); }
    void setListSize(int size);
    const QString& listItem(int index) const;
    void setListItem(int index, const QString& text);
    const QStringList& list() const { return m_list; }

    bool isVisible() const { return m_width > 0; }
    bool isEditable() const { return isVisible() && !m_readOnly; }
    bool hasButton() const { return !m_buttonText.isEmpty() && isEditable(); }
    bool isList() const { return m_kind == List; }
    Qt::Alignment textAlignment() const;

private:
    template<class T> void assign(T& field, const T& value);

    std::function<void()> m_changed;
    QString m_caption;
    QString m_buttonText;
    QStringList m_list;
    int m_width = 960;
    int m_alignment = LeftCentre;
    int m_kind = Text;
    bool m_readOnly = false;
};

} // namespace quorvane
