#pragma once
// The run of a script: reads its lines and answers each, also while a form is shown modally.

#include "drive/machine.h"
#include "drive/words.h"

#include <functional>
#include <istream>
#include <optional>
#include <ostream>

class Driver {
public:
    /// Everything outlives the driver. `powerCut` ends the process at once.
    Driver(Machine& machine, std::istream& script, std::ostream& answers,
        std::function<void(int status)> powerCut);

    /// Serves the script to its end, or to the program's, and closes the forms.
    void Run();

    /// 1 if any command was answered with an error, else 0.
    int Status() const { return m_failed ? 1 : 0; }

private:
    /// A command that was read and not yet answered.
    struct Current {
        int number;
        Json answer;
        bool countsTurns;
        Turns::Count turnsBefore;
    };

    /// Serves the script until its end or, for a modal form, until that is unloaded.
    void Serve(Form* modal);
    void ServeLine(std::string const& line);
    Json TryDispatch(std::vector<Word> const& words);
    Json Dispatch(std::vector<Word> const& words);
    void ArmTurn(std::vector<Word> const& words);
    void TurnDue();
    void Begin(bool isTurn);
    void GiveAnswer();
    bool IsOver(Form const* modal) const;

    Machine& m_machine;
    std::istream& m_script;
    std::ostream& m_answers;
    std::function<void(int)> m_powerCut;
    std::optional<Current> m_current;
    int m_read = 0;
    Turns::Count m_turn = 0; // the turn in which m_inTurn is to be served; 0 for none
    std::vector<Word> m_inTurn;
    std::optional<Json> m_served;
    bool m_scriptEnded = false;
    bool m_failed = false;
};
