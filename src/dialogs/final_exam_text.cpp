#include "dialogs/long_text.h"

using enum LongTextStyle;

static constexpr LongTextParagraph paragraphs[] = {
    { Title, u"The Final Exam" },
    { Paragraph, u"Dear friend," },
    { Paragraph,
        u"Most examinations are announced. We know the day, we know roughly what will be asked, "
        u"and if things go badly we may sit them a second time. There is one for which no date "
        u"is set. Each of us will stand before God, and on that day only one question will "
        u"matter." },
    { Paragraph, u"*If you were to die tonight, are you sure that you would go to heaven?*" },
    { Paragraph,
        u"Perhaps you would say: I hope so. Perhaps: nobody can know that. Perhaps you would "
        u"rather not be asked. We ask all the same, because the Bible says that it can be known, "
        u"and because those who wrote it wanted you to know it:" },
    { Quotation,
        u"\u201cThese things have I written unto you that believe on the name of the Son of God; "
        u"that ye may know that ye have eternal life.\u201d (1 John 5:13)" },
    { Paragraph,
        u"So this is an exam that is given with the book open, and the answers are in the book. "
        u"They can be gathered into four essential truths. Take your time with each of them. "
        u"Behind each stands a moment for you to stop and answer, not to us, but to God and to "
        u"yourself." },

    { Heading, u"1. God loves you and made you for himself" },
    { Paragraph,
        u"You aren\u2019t here by accident. Before you had done anything good or bad you were "
        u"known, and you were wanted. The first thing to be said about God and you is not a "
        u"demand. It is this:" },
    { Quotation,
        u"\u201cFor God so loved the world, that he gave his only begotten Son, that whosoever "
        u"believeth in him should not perish, but have everlasting life.\u201d (John 3:16)" },
    { Quotation,
        u"\u201cThe LORD hath appeared of old unto me, saying, Yea, I have loved thee with an "
        u"everlasting love: therefore with lovingkindness have I drawn thee.\u201d (Jeremiah "
        u"31:3)" },
    { Paragraph,
        u"Everlasting life is more than a life that doesn\u2019t end. Jesus described it as "
        u"knowing God: to be at home with him now, in this kitchen, in this trouble, on this "
        u"Tuesday, and never to be parted from him again." },
    { Quotation,
        u"\u201cAnd this is life eternal, that they might know thee the only true God, and Jesus "
        u"Christ, whom thou hast sent.\u201d (John 17:3)" },
    { Indented,
        u"*A moment to respond.* Can you believe that God loves you: not people in general, but "
        u"you, with your name and your history? Tell him what you find easy to believe about "
        u"that, and what you find hard." },

    { Heading, u"2. Our sin has parted us from God" },
    { Paragraph,
        u"If God is so near, why does he seem so far away? The Bible\u2019s answer is "
        u"uncomfortable, and it leaves nobody out. We have turned away and gone our own road. "
        u"Sin isn\u2019t only the great crimes of which others are guilty. It is the word that "
        u"was meant to hurt, the help that we didn\u2019t give, the heart that would rather be "
        u"its own master." },
    { Quotation,
        u"\u201cFor all have sinned, and come short of the glory of God.\u201d (Romans 3:23)" },
    { Quotation,
        u"\u201cBut your iniquities have separated between you and your God, and your sins have "
        u"hid his face from you, that he will not hear.\u201d (Isaiah 59:2)" },
    { Paragraph,
        u"It is no use to compare ourselves with our neighbours. One may swim farther than "
        u"another, but nobody swims across the ocean. And what we have earned is plainly told, "
        u"though the sentence doesn\u2019t stop there:" },
    { Quotation,
        u"\u201cFor the wages of sin is death; but the gift of God is eternal life through Jesus "
        u"Christ our Lord.\u201d (Romans 6:23)" },
    { Indented,
        u"*A moment to respond.* Is there something that stands between you and God? You need "
        u"not make it smaller than it is, nor larger. He knows it already. Will you call it by "
        u"its name before him?" },

    { Heading, u"3. Jesus Christ has opened the way back" },
    { Paragraph,
        u"People have tried many ways of coming back to God: to be good, to be religious, to "
        u"make up for what was wrong. Each of them starts from our side, and none of them "
        u"reaches the other. So God came from his side. Jesus lived the life that we "
        u"haven\u2019t lived, and he died the death that we have deserved, in our place." },
    { Quotation,
        u"\u201cBut God commendeth his love toward us, in that, while we were yet sinners, "
        u"Christ died for us.\u201d (Romans 5:8)" },
    { Quotation,
        u"\u201cFor Christ also hath once suffered for sins, the just for the unjust, that he "
        u"might bring us to God.\u201d (1 Peter 3:18)" },
    { Paragraph,
        u"And he didn\u2019t stay in the grave. On the third day he rose, and hundreds saw him "
        u"alive. The debt is paid; the door stands open; and there is no other." },
    { Quotation,
        u"\u201cJesus saith unto him, I am the way, the truth, and the life: no man cometh unto "
        u"the Father, but by me.\u201d (John 14:6)" },
    { Indented,
        u"*A moment to respond.* If somebody asked you why God should let you into his heaven, "
        u"what would you have answered until today? What would you answer now?" },

    { Heading, u"4. The gift must be received" },
    { Paragraph,
        u"A gift that lies on the table unopened belongs to nobody. It isn\u2019t enough to know "
        u"these things, or to agree with them, or to have heard them since childhood. A "
        u"doctor\u2019s medicine helps the patient who takes it. We receive what Christ has done "
        u"by *faith*: by turning from our own way and trusting ourselves to him." },
    { Quotation,
        u"\u201cFor by grace are ye saved through faith; and that not of yourselves: it is the "
        u"gift of God: Not of works, lest any man should boast.\u201d (Ephesians 2:8-9)" },
    { Quotation,
        u"\u201cBut as many as received him, to them gave he power to become the sons of God, "
        u"even to them that believe on his name.\u201d (John 1:12)" },
    { Quotation,
        u"\u201cBehold, I stand at the door, and knock: if any man hear my voice, and open the "
        u"door, I will come in to him, and will sup with him, and he with me.\u201d (Revelation "
        u"3:20)" },
    { Paragraph,
        u"Faith isn\u2019t a feeling, although feelings may come. It isn\u2019t the absence of "
        u"every doubt either. It is to open the door to the one who knocks, and to let him be "
        u"Lord of the house." },
    { Indented,
        u"*A moment to respond.* Do you hear him knock? Is there anything that holds you back "
        u"from opening? If there isn\u2019t, today is a good day." },

    { Heading, u"A prayer" },
    { Paragraph,
        u"God listens to the heart, and the words are yours to choose. If it helps you to have "
        u"some, you may make these your own. Read them first. If they say what you want to say, "
        u"say them to him:" },
    { Indented,
        u"*Lord Jesus, I need you. I have gone my own way, and I have done wrong against you and "
        u"against others. I am sorry. Thank you that you love me, and that you died on the cross "
        u"for my sins and rose again. I can\u2019t earn what you give, so I come with empty "
        u"hands. I open the door of my life to you and receive you as my Saviour and my Lord. "
        u"Forgive me, make your home with me, and make me the person that you meant me to be. "
        u"Thank you for hearing me and for the gift of life that doesn\u2019t end. Amen.*" },

    { Heading, u"If you have prayed this prayer" },
    { Paragraph,
        u"Then something has happened, whether you feel different or not. It doesn\u2019t rest "
        u"on how you feel today or how well you do tomorrow. It rests on what God has promised, "
        u"and this is what now holds:" },
    { Indented,
        u"*You are forgiven.* \u201cIf we confess our sins, he is faithful and just to forgive "
        u"us our sins, and to cleanse us from all unrighteousness.\u201d (1 John 1:9)" },
    { Indented,
        u"*You are God\u2019s child.* \u201cBehold, what manner of love the Father hath bestowed "
        u"upon us, that we should be called the sons of God.\u201d (1 John 3:1)" },
    { Indented,
        u"*You have eternal life, now.* \u201cHe that heareth my word, and believeth on him that "
        u"sent me, hath everlasting life, and shall not come into condemnation; but is passed "
        u"from death unto life.\u201d (John 5:24)" },
    { Indented,
        u"*You are not alone.* \u201cFor he hath said, I will never leave thee, nor forsake "
        u"thee.\u201d (Hebrews 13:5)" },
    { Indented,
        u"*You are kept.* \u201cAnd I give unto them eternal life; and they shall never perish, "
        u"neither shall any man pluck them out of my hand.\u201d (John 10:28)" },
    { Paragraph,
        u"A new life wants to grow. Speak with God every day, as simply as you would with a "
        u"friend. Read a little in the Bible; the Gospel of John is a good place to begin, and "
        u"the studies of this program will go along with you. Look for a church where Christ is "
        u"honoured and the Bible is opened. And tell somebody what you have done today, somebody "
        u"who will be glad with you." },
    { Paragraph,
        u"So, once more, the question of the final exam: *if you were to die tonight, are you "
        u"sure that you would go to heaven?* You may now answer it. Not because you have become "
        u"good enough, but because he is." },

    { Heading, u"We would like to help you" },
    { Paragraph,
        u"If you have taken this step, or if you still have questions about it, please let us "
        u"know. Write to Sparrowfield House at the address that came with your disc, and ask for "
        u"the material for those who are beginning. We will gladly send it to you; it costs you "
        u"nothing, and nobody will press you." },
    { Quotation,
        u"\u201cThe LORD bless thee, and keep thee: The LORD make his face shine upon thee, and "
        u"be gracious unto thee: The LORD lift up his countenance upon thee, and give thee "
        u"peace.\u201d (Numbers 6:24-26)" },
    { Paragraph, u"*Your friends at Sparrowfield House*" },
};

std::span<LongTextParagraph const> const finalExamText = paragraphs;
