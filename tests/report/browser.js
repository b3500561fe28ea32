// Looks at the pages in the frames, one in each language, and writes what is wrong with them into #faults.

const headings = {en: "Referenced By", ja: "参照元のキー", ko: "참조하는 키"};
const comments = ["Languages that the house publishes in", "氏名のふりがな", "계약이 미치는 나라."];
const faults = [];

function expect(holds, what) {
    if (!holds) faults.push(what);
}

function anchorOf(page, hash) {
    const name = decodeURIComponent(hash.slice(1));
    return page.getElementById(name) || page.getElementsByName(name)[0];
}

function checkText(page, language) {
    expect(page.characterSet === "UTF-8", "the character set is " + page.characterSet);
    expect(page.title === "Publishing", "the title is " + page.title);
    for (const text of [headings[language], ...comments])
        expect(page.body.textContent.includes(text), "there is no " + text);
}

function checkLook(page) {
    const style = page.defaultView.getComputedStyle(page.querySelector("table"));
    expect(style.borderCollapse === "collapse", "the style sheet is missing");
    expect(page.images.length > 100, "there are few pictures");
    for (const picture of page.images) expect(picture.naturalWidth === 32, picture.src + " is not shown");
}

function checkLinks(page) {
    const links = [...page.querySelectorAll("a[href^='#']")];
    expect(links.length > 500, "there are few links");
    for (const link of links) expect(anchorOf(page, link.hash || link.href.baseVal), link + " leads nowhere");
    const column = page.querySelector("td a[href^='#c']");
    column.click();
    expect(page.querySelector(":target") === anchorOf(page, column.hash), column + " does not lead to its column");
}

function checkDiagram(page) {
    const tables = page.querySelectorAll("a[id^='Table:']");
    const boxes = page.querySelectorAll(".box");
    expect(tables.length > 20 && boxes.length === tables.length, "there are " + boxes.length + " boxes");
    expect(page.querySelectorAll(".link").length > 40, "there are few connectors");
    const jump = page.defaultView.Box_onClick;
    let clicked;
    page.defaultView.Box_onClick = (name, ...rest) => jump(clicked = name, ...rest);
    for (const box of boxes) {
        const name = box.querySelector("text").textContent;
        page.defaultView.location = "#";
        box.dispatchEvent(new page.defaultView.MouseEvent("click", {bubbles: true, cancelable: true}));
        const target = page.querySelector(":target");
        expect(clicked === name, "a click on " + name + " is not passed on");
        expect(target && target.id === "Table:" + name, name + " does not lead to its table");
    }
}

window.addEventListener("load", () => {
    for (const frame of document.querySelectorAll("iframe")) {
        const language = frame.getAttribute("src").slice(0, 2);
        const before = faults.length;
        const page = frame.contentDocument;
        checkText(page, language);
        checkLook(page);
        checkLinks(page);
        checkDiagram(page);
        for (let i = before; i < faults.length; ++i) faults[i] = language + ": " + faults[i];
    }
    document.getElementById("faults").textContent = (faults.length ? faults.join("\n") : "none") + "\n";
});
