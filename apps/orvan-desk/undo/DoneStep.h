// DoneStep: a step of the history that the user has taken otherwise than in the list view or in a field: it has been
// done when it is pushed. Ownership: the history's stack. Thread: the user-interface thread.
#pragma once

#include "apps/orvan-desk/undo/QuoteHistory.h"

#include <QUndoCommand>

#include <functional>

namespace orvan::desk {

class DoneStep final : public QUndoCommand {
public:
    using Work = std::function<void()>;

    /// Where `undo` or `redo` raises an error, the history is emptied and tells it (QuoteHistory::failed).
    DoneStep(QuoteHistory& history, const QString& name, Work undo, Work redo);

    void undo() override;
    void redo() override;

private:
    void perform(const Work& work);

    QuoteHistory& history_;
    const Work undo_;
    const Work redo_;
    bool done_ = true;
};

} // namespace orvan::desk
