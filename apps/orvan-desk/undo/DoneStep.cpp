#include "apps/orvan-desk/undo/DoneStep.h"

#include "orvan/ui/qt/Translation.h"

#include <exception>
#include <utility>

namespace orvan::desk {

DoneStep::DoneStep(QuoteHistory& history, const QString& name, Work undo, Work redo)
    : QUndoCommand(name), history_(history), undo_(std::move(undo)), redo_(std::move(redo))
{
}

void DoneStep::undo()
{
    perform(undo_);
}

void DoneStep::redo()
{
    if (!std::exchange(done_, false)) { // QUndoStack calls this when the step is pushed
        perform(redo_);
    }
}

void DoneStep::perform(const Work& work)
{
    try {
        work();
    } catch (const std::exception& error) {
        // From the event loop, because emptying the history destroys this step.
        QMetaObject::invokeMethod(
            &history_,
            [&history = history_, why = qt::translated(error)] {
                history.restart();
                Q_EMIT history.failed(why);
            },
            Qt::QueuedConnection);
    }
    Q_EMIT history_.applied();
}

} // namespace orvan::desk
