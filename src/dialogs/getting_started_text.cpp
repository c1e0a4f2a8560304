#include "dialogs/long_text.h"

using enum LongTextStyle;

static constexpr LongTextParagraph paragraphs[] = {
    { Title, u"Getting Started" },
    { Paragraph,
        u"Welcome! This program is a workbook. It asks the questions, you look up the passages "
        u"and write your own answers, and it keeps every word that you write. A few minutes with "
        u"this page will show you your way around." },

    { Heading, u"The lesson screen" },
    { Paragraph,
        u"When you have chosen a lesson, the screen is divided into five boxes. Each has its own "
        u"work to do." },
    { Indented,
        u"*Upper left: the lesson overview.* Here stand the title of the lesson, the *main "
        u"passage* that it studies, and an *introduction* that sets the scene. It stays there "
        u"while you work, so you can come back to it." },
    { Indented,
        u"*Bottom left: the question and the answer box.* This is your part of the screen. Write "
        u"as little or as much as you like; the box scrolls when it is full. Below it are the "
        u"navigation tools: the picture of a lamp, the buttons that lead back and on, and "
        u"between them the bar that takes you quickly to any page." },
    { Indented,
        u"*Upper right centre: the main scripture.* One click on a reference in this box brings "
        u"up the passage that the lesson is about." },
    { Indented,
        u"*Upper right: the supplementary scripture.* These are passages from other parts of the "
        u"Bible that throw light on the lesson. Click on one in the list and it is there at "
        u"once." },
    { Indented,
        u"*Lower right: the scripture itself.* The passage that you have chosen is shown here, "
        u"and you can scroll through it while you think and write. Beneath it the *progress bar* "
        u"shows how much of the lesson lies behind you." },

    { Heading, u"Working through a lesson, step by step" },
    { Numbered,
        u"1. *Read the introduction.* It tells you what the lesson is about and what to watch "
        u"for." },
    { Numbered,
        u"2. *Read the main passage.* Open it in the upper right centre and read it through, "
        u"slowly, before you look at any question. Twice is better than once." },
    { Numbered,
        u"3. *Answer the first question.* The lesson opens on it. At the end of a question stand "
        u"the references that help you to answer it; look them up on the right, then write what "
        u"you have found, in your own words, in the answer box. You needn\u2019t save anything: "
        u"what you type is stored about a second later." },
    { Numbered,
        u"4. *Click on the lamp.* It opens a window with the answer that the publisher suggests, "
        u"once you have written something yourself." },
    { Numbered,
        u"5. *Compare.* Does your answer say much the same? Does one of the two see something "
        u"that the other has overlooked? You can add to your own answer as often as you like." },
    { Numbered,
        u"6. *Go on.* As soon as your answer stands in the box, the \u201cNext >\u201d button "
        u"takes you to the next question. \u201c< Prev\u201d leads to the one before, and the bar "
        u"between the two to any page." },
    { Numbered,
        u"7. *Keep going, at your own pace.* The progress bar shows how far you have come. You "
        u"may stop wherever you are and close the program; when you return to the lesson it "
        u"opens at the page where you left it, with all your answers. Rest the mouse on a lesson "
        u"in the list of studies to see what you have done in it." },
    { Numbered,
        u"8. *Take the next lesson.* When you have come to the end, open the *File* menu and "
        u"click on \u201cChoose Another Study\u201d. It takes you back to the list of studies, "
        u"where the next lesson waits. Many lessons have a Part One and a Part Two, and each has "
        u"its own place in the list." },
    { Numbered,
        u"9. *When the whole study is finished,* look back. Page through the lessons again and "
        u"read what you wrote at the beginning; you may be surprised how far you have travelled. "
        u"Then choose another study, or do the same one again with a friend." },

    { Heading, u"Three hints" },
    { Indented,
        u"*Be patient at the start.* The first lesson of a study often asks you to read more "
        u"than the later ones do. The time is well spent: whoever knows the passage finds the "
        u"answers." },
    { Indented,
        u"*Don\u2019t reach for the lamp too soon.* An answer that you have found yourself stays "
        u"with you; one that was handed to you is gone by evening. Write something first, even "
        u"if it is only a guess or a new question." },
    { Indented,
        u"*Don\u2019t skip the personal questions.* Some questions have no answer behind the "
        u"lamp, because only you can answer them. They ask what the passage means for your own "
        u"days, and they may well be the most important part of the lesson. Nobody but you will "
        u"read what you write there." },
    { Quotation,
        u"\u201cBut be ye doers of the word, and not hearers only, deceiving your own "
        u"selves.\u201d (James 1:22)" },

    { Heading, u"More help on the way" },
    { Paragraph,
        u"In the menus at the top of both main screens you find the whole *Bible* to read in and "
        u"nine *maps* that show where it all took place. The *Help* menu brings you back to this "
        u"page. All these windows stay open when you begin a lesson, turn its pages or leave it, "
        u"until you close them yourself; only the window of the lamp closes when you turn the "
        u"page." },
    { Indented,
        u"*The Bible reader.* Choose a chapter in the index, or write a reference in the box at "
        u"the top and press Enter: a book (\u201cRuth\u201d), a chapter (\u201cRuth 2\u201d), a "
        u"verse (\u201cJohn 3:16\u201d) or several (\u201cJohn 3:16-18\u201d, \u201cGen "
        u"1:1-2:3\u201d). Alt and the left arrow key lead back to what you looked up before, Alt "
        u"and the right one on again. The list beside that box changes the translation, and the "
        u"line at the bottom of the window tells which text you read." },
    { Indented,
        u"*Notes.* The box on the right of the reader holds a note of your own for each chapter. "
        u"It is kept without a command and comes back with its chapter, in either translation. "
        u"\u201cPrint\u201d puts it on paper; Ctrl and P print all your notes on the book." },
    { Indented,
        u"*Your answers on paper.* In a lesson, Ctrl and P print the questions of this part with "
        u"what you have written, and lines to write on where you haven\u2019t yet. Together with "
        u"Shift they print our answers as well. Without a printer you find the pages as a PDF "
        u"among your documents." },
    { Indented,
        u"*Larger letters.* Hold down Ctrl and press + to make all texts that you read and write "
        u"larger, or - to make them smaller; Ctrl and 0 makes them as they were. Ctrl and the "
        u"wheel of the mouse do the same. The program remembers the size." },
    { Indented,
        u"*Maps.* A map that is larger than its window can be dragged: press the mouse button on "
        u"it, move the mouse, and let go. The arrow keys move it too, and Esc closes it." },

    { Heading, u"Keeping your answers safe" },
    { Paragraph,
        u"Your answers and notes are on this computer alone. To have a copy of them, open a "
        u"terminal and give the command \u201csparrowfield-kit answers backup FILE\u201d, with a "
        u"name of your choice in place of FILE. \u201csparrowfield-kit answers restore FILE\u201d "
        u"brings them back, on this computer or on another. If the command isn\u2019t found, open "
        u"the terminal in the folder of this program and write \u201c./sparrowfield-kit\u201d." },
    { Paragraph,
        u"\u201cDelete Answers For This Lesson\u201d in the *Edit* menu asks no question, but it "
        u"first writes the answers of the lesson to a file \u201cbefore-delete-N.backup\u201d, "
        u"with a number in place of N, beside the program\u2019s settings: in the folder "
        u"\u201csparrowfield\u201d in \u201c.local/share\u201d of your home folder. If you deleted "
        u"them by mistake, \u201csparrowfield-kit answers restore\u201d with the name of that file "
        u"brings them back." },

    { Heading, u"Tell us what you think" },
    { Paragraph,
        u"We would be glad to hear from you. If a question was unclear, if an answer didn\u2019t "
        u"satisfy you, or if a lesson has helped you, please write to Sparrowfield House at the "
        u"address that came with your disc. Every comment is read, and the next edition will be "
        u"the better for it." },
    { Paragraph, u"*May you find joy in your study!*" },
};

std::span<LongTextParagraph const> const gettingStartedText = paragraphs;
