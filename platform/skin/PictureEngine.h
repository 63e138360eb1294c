#pragma once

#include <QIconEngine>

namespace skin {

/// Shows the pictures that the build drew. A toolbar asks for its icons again at every repaint and every
/// scale, so a picture is read when it is first shown, in the size that the screen needs, and kept in the
/// application's pixmap cache.
class PictureEngine : public QIconEngine {
public:
    /// A picture's path without size and ending, such as ":/skin/normal/leer"; the second path is shown while
    /// the mouse is over the icon (may be the same).
    PictureEngine(QString normal, QString hot, QList<int> sizes);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;

private:
    QImage load(int side, QIcon::Mode mode) const;

    QString m_normal;
    QString m_hot;
    QList<int> m_sizes;
};

} // namespace skin
