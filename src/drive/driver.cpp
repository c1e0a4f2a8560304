#include "drive/driver.h"

#include "drive/commands.h"

#include <string>
#include <utility>

Driver::Driver(Machine& machine, std::istream& script, std::ostream& answers,
    std::function<void(int status)> powerCut)
    : m_machine(machine)
    , m_script(script)
    , m_answers(answers)
    , m_powerCut(std::move(powerCut))
{
    machine.host.serveModal = [this](Form& form) {
        GiveAnswer();
        Serve(&form);
    };
    machine.host.onTurn = [this] { TurnDue(); };
    machine.host.onAssigned = [&machine](Control& control, PropertyBase const& property) {
        if (!machine.watched.contains(&property))
            return;
        bool const isForm = &control == &control.ParentForm();
        std::string const owner = isForm
            ? control.Name()
            : std::string(control.ParentForm().Name()) + "." + control.Name();
        machine.changes.push_back(
            { { "property", owner + "." + property.Name() }, { "value", ToJson(property.Get()) } });
    };
}

void Driver::Run()
{
    Serve(nullptr);
    m_machine.screen.CloseAll();
}

bool Driver::IsOver(Form const* modal) const
{
    return modal && (!modal->IsLoaded() || m_machine.screen.Ended());
}

void Driver::Serve(Form* modal)
{
    std::string line;
    while (!IsOver(modal) && !m_scriptEnded) {
        if (!std::getline(m_script, line)) {
            m_scriptEnded = true;
            break;
        }
        auto const first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos || line[first] == '#')
            continue;
        ServeLine(line);
        // The command that closed the modal form is answered after the handler that showed it.
        if (!IsOver(modal))
            GiveAnswer();
    }
    if (modal && modal->IsLoaded() && m_scriptEnded)
        Unload(*modal);
}

void Driver::ServeLine(std::string const& line)
{
    std::vector<Word> words;
    std::optional<Json> answer;
    try {
        words = SplitWords(line);
    } catch (CommandError const& error) {
        answer = Json { { "error", error.what() } };
    }
    Begin(!words.empty() && words.front().text == "turn");
    int const number = m_current->number;
    if (!answer)
        answer = TryDispatch(words);
    // A command that opened a modal form has been answered already; the current one is later.
    if (m_current && m_current->number == number)
        m_current->answer = *answer;
}

void Driver::Begin(bool isTurn)
{
    m_current
        = Current { ++m_read, Json::object(), !isTurn && m_turn > 0, m_machine.host.turns.Given() };
    if (!m_current->countsTurns)
        return;
    m_served.reset();
    m_machine.host.turns.Arm(m_turn);
    m_turn = 0;
}

void Driver::GiveAnswer()
{
    if (!m_current)
        return;
    Json& answer = m_current->answer;
    if (m_current->countsTurns) {
        m_machine.host.turns.Arm(Turns::never);
        answer["turns"] = m_machine.host.turns.Given() - m_current->turnsBefore;
        if (m_served)
            answer["served"] = *m_served;
    }
    if (answer.contains("error"))
        m_failed = true;
    m_answers << answer.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
    m_current.reset();
}

Json Driver::TryDispatch(std::vector<Word> const& words)
{
    try {
        return Dispatch(words);
    } catch (CommandError const& error) {
        return { { "error", error.what() } };
    }
}

static bool ServesAfterTheEnd(std::string const& name)
{
    return name == "running" || name == "messages" || name == "printed" || name == "opened";
}

Json Driver::Dispatch(std::vector<Word> const& words)
{
    std::string const& name = words.front().text;
    if (m_machine.screen.Ended() && !ServesAfterTheEnd(name))
        throw CommandError("the program has ended");
    if (name == "turn") {
        ArmTurn(words);
        return Json::object();
    }
    if (name == "program-ends") {
        GiveAnswer();
        m_powerCut(Status());
    }
    return Execute(m_machine, words);
}

void Driver::ArmTurn(std::vector<Word> const& words)
{
    if (words.size() < 3)
        throw CommandError("turn needs a number and a command");
    int const turn = Arguments(m_machine.screen, words).IntegerAt(1);
    if (turn < 1)
        throw CommandError("turns are counted from 1");
    // The command may be written as one quoted word or as words of its own.
    m_inTurn = words.size() == 3 && words[2].quoted
        ? SplitWords(words[2].text)
        : std::vector<Word>(words.begin() + 2, words.end());
    if (m_inTurn.empty() || m_inTurn.front().text == "turn")
        throw CommandError("this can't be served in a turn");
    m_turn = static_cast<Turns::Count>(turn);
}

void Driver::TurnDue()
{
    m_served = TryDispatch(m_inTurn);
    if (m_served->contains("error"))
        m_failed = true;
}
