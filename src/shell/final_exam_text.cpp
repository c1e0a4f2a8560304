#include "shell/long_text.h"

using enum LongTextStyle;

static constexpr LongTextParagraph paragraphs[] = {
    { Title, u"The Final Exam" },
    { Paragraph, u"Dear friend," },
    { Paragraph,
        u"Most examinations are announced. We know the day, we know roughly what will be asked, "
        u"and if things go badly we may "
        u"sit them a second time. There is one for which no date is set. Each of us will stand "
        u"before God, and on that day only "
        u"one question will matter." },
    { Paragraph, u"*If you were to die tonight, are you sure that you would go to heaven?*" },
    { Paragraph,
        u"Perhaps you would say: I hope so. Perhaps: nobody can know that. Perhaps you would "
        u"rather not be asked. We ask all the "
        u"same, because the Bible says that it can be known, and because those who wrote it wanted "
        u"you to know it:" },
    { Quotation,
        u"\u201cThese things have I written unto you that believe on the name of the Son of God; "
        u"that ye may know that ye have "
        u"eternal life.\u201d (1 John 5:13)" },
    { Paragraph,
        u"So this is an exam that is given with the book open, and the answers are in the book. "
        u"They can be gathered into four "
        u"essential truths. Take your time with each of them. Behind each stands a moment for you "
        u"to stop and answer, not to "
        u"us, but to God and to yourself." },

    { Heading, u"1. God loves you and made you for himself" },
    { Paragraph,
        u"You aren\u2019t here by accident. Before you had done anything good or bad you were "
        u"known, and you were wanted. The "
        u"first thing to be said about God and you is not a demand. It is this:" },
    { Quotation,
        u"\u201cFor God so loved the world, that he gave his only begotten Son, that whosoever "
        u"believeth in him should not "
        u"perish, but have everlasting life.\u201d (John 3:16)" },
    { Quotation,
        u"\u201cThe LORD hath appeared of old unto me, saying, Yea, I have loved thee with an "
        u"everlasting love: therefore with "
        u"lovingkindness have I drawn thee.\u201d (Jeremiah 31:3)" },
    { Paragraph,
        u"Everlasting life is more than a life that doesn\u2019t end. Jesus described it as "
        u"knowing God: to be at home with him "
        u"now, in this kitchen, in this trouble, on this Tuesday, and never to be parted from him "
        u"again." },
    { Quotation,
        u"\u201cAnd this is life eternal, that they might know thee the only true God, and Jesus "
        u"Christ, whom thou hast "
        u"sent.\u201d (John 17:3)" },
    { Indented,
        u"*A moment to respond.* Can you believe that God loves you: not people in general, but "
        u"you, with your name and your "
        u"history? Tell him what you find easy to believe about that, and what you find hard." },

    { Heading, u"2. Our sin has parted us from God" },
    { Paragraph,
        u"If God is so near, why does he seem so far away? The Bible\u2019s answer is "
        u"uncomfortable, and it leaves nobody out. "
        u"We have turned away and gone our own road. Sin isn\u2019t only the great crimes of which "
        u"others are guilty. It is the "
        u"word that was meant to hurt, the help that we didn\u2019t give, the heart that would "
        u"rather be its own master." },
    { Quotation,
        u"\u201cFor all have sinned, and come short of the glory of God.\u201d (Romans 3:23)" },
    { Quotation,
        u"\u201cBut your iniquities have separated between you and your God, and your sins have "
        u"hid his face from you, that he "
        u"will not hear.\u201d (Isaiah 59:2)" },
    { Paragraph,
        u"It is no use to compare ourselves with our neighbours. One may swim farther than "
        u"another, but nobody swims across the "
        u"ocean. And what we have earned is plainly told, though the sentence doesn\u2019t stop "
        u"there:" },
    { Quotation,
        u"\u201cFor the wages of sin is death; but the gift of God is eternal life through Jesus "
        u"Christ our Lord.\u201d (Romans "
        u"6:23)" },
    { Indented,
        u"*A moment to respond.* Is there something that stands between you and God? You need not "
        u"make it smaller than it is, nor "
        u"larger. He knows it already. Will you call it by its name before him?" },

    { Heading, u"3. Jesus Christ has opened the way back" },
    { Paragraph,
        u"People have tried many ways of coming back to God: to be good, to be religious, to make "
        u"up for what was wrong. Each of "
        u"them starts from our side, and none of them reaches the other. So God came from his "
        u"side. Jesus lived the life that we "
        u"haven\u2019t lived, and he died the death that we have deserved, in our place." },
    { Quotation,
        u"\u201cBut God commendeth his love toward us, in that, while we were yet sinners, Christ "
        u"died for us.\u201d (Romans "
        u"5:8)" },
    { Quotation,
        u"\u201cFor Christ also hath once suffered for sins, the just for the unjust, that he "
        u"might bring us to God.\u201d (1 "
        u"Peter 3:18)" },
    { Paragraph,
        u"And he didn\u2019t stay in the grave. On the third day he rose, and hundreds saw him "
        u"alive. The debt is paid; the door "
        u"stands open; and there is no other." },
    { Quotation,
        u"\u201cJesus saith unto him, I am the way, the truth, and the life: no man cometh unto "
        u"the Father, but by me.\u201d "
        u"(John 14:6)" },
    { Indented,
        u"*A moment to respond.* If somebody asked you why God should let you into his heaven, "
        u"what would you have answered until "
        u"today? What would you answer now?" },

    { Heading, u"4. The gift must be received" },
    { Paragraph,
        u"A gift that lies on the table unopened belongs to nobody. It isn\u2019t enough to know "
        u"these things, or to agree with "
        u"them, or to have heard them since childhood. A doctor\u2019s medicine helps the patient "
        u"who takes it. We receive what "
        u"Christ has done by *faith*: by turning from our own way and trusting ourselves to him." },
    { Quotation,
        u"\u201cFor by grace are ye saved through faith; and that not of yourselves: it is the "
        u"gift of God: Not of works, lest "
        u"any man should boast.\u201d (Ephesians 2:8-9)" },
    { Quotation,
        u"\u201cBut as many as received him, to them gave he power to become the sons of God, even "
        u"to them that believe on his "
        u"name.\u201d (John 1:12)" },
    { Quotation,
        u"\u201cBehold, I stand at the door, and knock: if any man hear my voice, and open the "
        u"door, I will come in to him, and "
        u"will sup with him, and he with me.\u201d (Revelation 3:20)" },
    { Paragraph,
        u"Faith isn\u2019t a feeling, although feelings may come. It isn\u2019t the absence of "
        u"every doubt either. It is to "
        u"open the door to the one who knocks, and to let him be Lord of the house." },
    { Indented,
        u"*A moment to respond.* Do you hear him knock? Is there anything that holds you back from "
        u"opening? If there isn\u2019t, "
        u"today is a good day." },

    { Heading, u"A prayer" },
    { Paragraph,
        u"God listens to the heart, and the words are yours to choose. If it helps you to have "
        u"some, you may make these your own. "
        u"Read them first. If they say what you want to say, say them to him:" },
    { Indented,
        u"*Lord Jesus, I need you. I have gone my own way, and I have done wrong against you and "
        u"against others. I am sorry. "
        u"Thank you that you love me, and that you died on the cross for my sins and rose again. I "
        u"can\u2019t earn what you "
        u"give, so I come with empty hands. I open the door of my life to you and receive you as "
        u"my Saviour and my Lord. "
        u"Forgive me, make your home with me, and make me the person that you meant me to be. "
        u"Thank you for hearing me and for "
        u"the gift of life that doesn\u2019t end. Amen.*" },

    { Heading, u"If you have prayed this prayer" },
    { Paragraph,
        u"Then something has happened, whether you feel different or not. It doesn\u2019t rest on "
        u"how you feel today or how well "
        u"you do tomorrow. It rests on what God has promised, and this is what now holds:" },
    { Indented,
        u"*You are forgiven.* \u201cIf we confess our sins, he is faithful and just to forgive us "
        u"our sins, and to cleanse us "
        u"from all unrighteousness.\u201d (1 John 1:9)" },
    { Indented,
        u"*You are God\u2019s child.* \u201cBehold, what manner of love the Father hath bestowed "
        u"upon us, that we should be "
        u"called the sons of God.\u201d (1 John 3:1)" },
    { Indented,
        u"*You have eternal life, now.* \u201cHe that heareth my word, and believeth on him that "
        u"sent me, hath everlasting life, "
        u"and shall not come into condemnation; but is passed from death unto life.\u201d (John "
        u"5:24)" },
    { Indented,
        u"*You are not alone.* \u201cFor he hath said, I will never leave thee, nor forsake "
        u"thee.\u201d (Hebrews 13:5)" },
    { Indented,
        u"*You are kept.* \u201cAnd I give unto them eternal life; and they shall never perish, "
        u"neither shall any man pluck them "
        u"out of my hand.\u201d (John 10:28)" },
    { Paragraph,
        u"A new life wants to grow. Speak with God every day, as simply as you would with a "
        u"friend. Read a little in the Bible; "
        u"the Gospel of John is a good place to begin, and the studies of this program will go "
        u"along with you. Look for a "
        u"church where Christ is honoured and the Bible is opened. And tell somebody what you have "
        u"done today, somebody who "
        u"will be glad with you." },
    { Paragraph,
        u"So, once more, the question of the final exam: *if you were to die tonight, are you sure "
        u"that you would go to heaven?* "
        u"You may now answer it. Not because you have become good enough, but because he is." },

    { Heading, u"We would like to help you" },
    { Paragraph,
        u"If you have taken this step, or if you still have questions about it, please let us "
        u"know. Write to Sparrowfield House "
        u"at the address that came with your disc, and ask for the material for those who are "
        u"beginning. We will gladly send it "
        u"to you; it costs you nothing, and nobody will press you." },
    { Quotation,
        u"\u201cThe LORD bless thee, and keep thee: The LORD make his face shine upon thee, and be "
        u"gracious unto thee: The LORD "
        u"lift up his countenance upon thee, and give thee peace.\u201d (Numbers 6:24-26)" },
    { Paragraph, u"*Your friends at Sparrowfield House*" },
};

std::span<LongTextParagraph const> const finalExamText = paragraphs;
