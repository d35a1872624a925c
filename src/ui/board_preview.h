// A small board that only shows a position.
#pragma once

#include "ui/artwork.h"

#include <QWidget>

#include <string>

namespace zonterbrook::ui {

class BoardPreview : public QWidget {
    Q_OBJECT

public:
    /// `InArt` must live as long as this.
    explicit BoardPreview(Artwork& InArt, QWidget* Parent = nullptr);

    /// `Squares`: a hundred digits as in a variant file. `PiecesOnBlack` as the rule.
    void Display(const std::string& Squares, int PiecesOnBlack);

protected:
    void paintEvent(QPaintEvent* Event) override;

private:
    Artwork& Art;
    std::string Squares;
    int PiecesOnBlack = 1;
};

/// Paints a position over `Area`, from White's side.
void PaintPosition(QPainter& Painter, Artwork& Art, const QRect& Area, const std::string& Squares, int PiecesOnBlack);

} // namespace zonterbrook::ui
