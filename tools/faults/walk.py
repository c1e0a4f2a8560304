"""The session during which the disk fails. It covers every kind of storing: pages that are turned,
saved, left for the catalogue and for the reader; answers that are deleted and written again; notes
with and without characters outside code page 1252, each replacing the other; the translation; the
end of the program.

To extend it, add steps of writer.Writer; they record what is typed."""


def earlier(person):
    """An earlier session in the same folder."""
    person.enter()
    person.open_lesson("mount-1.dat:1")
    for word in ("once", "twice", "thrice"):
        person.answer_with(f"written {word} before")
        person.next_page()
    person.close_lesson()
    person.open_reader()
    for reference, text in (
        ("Jude 1", "an old note"),
        ("Ruth 2", "an old note, \u05e8\u05d5\u05ea"),
    ):
        person.look_up(reference)
        person.write(person.note, text)
    person.close_reader()


def walk(person):
    person.enter()
    person.open_lesson("mount-1.dat:1")
    person.go_to_page(1)
    for text in (" grace and peace", " two\r\nlines", " \u03c7\u03ac\u03c1\u03b9\u03c2 beyond"):
        person.answer_with(text)
        person.next_page()
    person.go_to_page(2)
    person.answer_with(" more")
    person.wait_a_second(person.answer)
    person.answer_with(" and")
    person.save()
    person.answer_with(" yet")
    person.open_reader()
    notes(person)
    person.close_reader()
    person.next_page()
    person.close_lesson()
    person.open_lesson("mount-2.dat:2")
    for text in ("of another lesson", "to be deleted"):
        person.answer_with(text)
        person.next_page()
    person.delete_answers()
    person.answer_with("begun anew")
    person.next_page()
    person.close_lesson()
    person.open_lesson("mount-1.dat:1")
    person.go_to_page(2)
    person.answer_with(" the last word")


def notes(person):
    person.look_up("Jude 1")
    person.write(person.note, " plain")
    person.wait_a_second(person.note)
    person.write(person.note, " caf\u00e9 \u03bb")
    person.wait_a_second(person.note)
    person.write(person.note, " behind")
    person.choose_translation(1)
    person.write(person.note, " more \u05d1\u05e8\u05d0")
    person.look_up("Ruth 2")
    person.write(person.note, " \u03b1 and \u03c9")
    person.look_up("Jude 1")
    person.write_anew(person.note, "plain again")
    person.look_up("Ruth 2")
    person.write(person.note, " \u03b2 between")
    person.look_up("2 John 1")
    person.write(person.note, "short")


def visit(person, places):
    """The text that the program shows at each of these places."""
    shown = {}
    answers = [place for place in places if place[0] == "answer"]
    for lesson in sorted({place[1] for place in answers}):
        person.open_lesson(lesson)
        for place in answers:
            if place[1] == lesson:
                person.go_to_page(place[2])
                shown[place] = person.answer.text
        person.close_lesson()
    person.open_reader()
    for place in places:
        if place[0] == "note":
            person.look_up(place[1][:-1] + " " + place[1][-1])
            shown[place] = person.note.text
    person.close_reader()
    return shown
