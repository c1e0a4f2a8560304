#pragma once
// What the peers of the controls share: the way of user actions to the model, and a guard by which
// what the host itself changes isn't taken for one.

#include "controls/input.h"
#include "desktop/peers/pictures.h"

#include <chrono>
#include <functional>
#include <optional>

class PeerContext {
public:
    explicit PeerContext(FileSystem const& files);

    /// Passes an action of the user on the control to the model, then updates the widgets, even if
    /// the model refused it. Nothing while the host itself sets the widgets.
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

    /// While it lives, what happens to widgets is the host's doing.
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
    /// The place on the machine of a file that the program names; set by the host.
    std::function<Text(TextView path)> placeOf;
    /// when the user last pressed, clicked or moved something
    std::chrono::steady_clock::time_point lastAct;
    /// how much larger than designed the text of pages is, in steps; for the run of the program
    int pageZoom = 0;

private:
    bool m_mirroring = false;
    int m_acting = 0;
};

inline PeerContext::PeerContext(FileSystem const& fileSystem)
    : files(fileSystem)
    , pictures(fileSystem)
{
}
