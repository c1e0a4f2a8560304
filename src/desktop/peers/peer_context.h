#pragma once
// What the peers share: passing user actions to the model, and a guard against taking the host's
// own changes for actions.

#include "controls/input.h"
#include "desktop/peers/pictures.h"

#include <chrono>
#include <functional>
#include <optional>

class PeerContext {
public:
    explicit PeerContext(FileSystem const& files);

    /// Passes a user action to the model, then updates the widgets, even if the model refused it.
    /// Does nothing while the host itself changes widgets.
    template <class Action> void Act(Control& control, Action action)
    {
        if (IsMirroring() || !input)
            return;
        {
            ++m_acting;
            struct Acted {
                int& count;
                ~Acted() { --count; }
            } const acting { m_acting };
            action(*input);
        }
        acted(control);
    }
    /// True while an action is under way: then no widget may be destroyed.
    bool IsActing() const { return m_acting > 0; }
    bool IsMirroring() const { return m_mirroring; }

    /// While one exists, the host itself changes widgets.
    class Mirroring {
    public:
        explicit Mirroring(PeerContext& context)
            : m_context(context)
            , m_before(std::exchange(context.m_mirroring, true))
        {
        }
        ~Mirroring() { m_context.m_mirroring = m_before; }
        Mirroring(Mirroring const&) = delete;
        Mirroring& operator=(Mirroring const&) = delete;

    private:
        PeerContext& m_context;
        bool m_before;
    };

    FileSystem const& files;
    Pictures pictures;
    Screen* screen = nullptr; ///< known from the first loaded form on, as is the input
    std::optional<Input> input;
    std::function<void(Control& control)> acted;
    /// The real path of a file that the program names; set by the host.
    std::function<Text(TextView path)> placeOf;
    /// when the user last pressed, clicked or moved something
    std::chrono::steady_clock::time_point lastAct;

private:
    bool m_mirroring = false;
    int m_acting = 0;
};

inline PeerContext::PeerContext(FileSystem const& fileSystem)
    : files(fileSystem)
    , pictures(fileSystem)
{
}
