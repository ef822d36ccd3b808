#pragma once

#include <QPushButton>

namespace ledgora {

/// A command. Its access key takes the focus from the field being typed in, so that the field is left and its cell
/// editor commits, and clicks at once, without the animation in which typed keys would still reach the field.
class CommandButton : public QPushButton
{
    Q_OBJECT
    /// Whether the field that is left must pass its check first. Cancel and Back do without.
    Q_PROPERTY(bool causesValidation READ causesValidation WRITE setCausesValidation)
public:
    using QPushButton::QPushButton;

    bool causesValidation() const { return m_causesValidation; }
    void setCausesValidation(bool causes) { m_causesValidation = causes; }

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool m_causesValidation = true;
};

} // namespace ledgora
