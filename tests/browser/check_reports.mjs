// Looks at reports as their readers' browsers do.
//
//   node check_reports.mjs MODULES CHROMIUM PAGE...
//
// MODULES: the folder where npm installed what package.json names. Of each page: it asks for no
// file but itself, has no script, no finding of axe in light and in dark, nothing wider than a
// telephone, an A4 page or more when printed, and valid HTML. Exit code 1 and a line for each
// finding; a line for each page that has none. As many pages at a time as there are cores.
import {createRequire} from "node:module";
import {readFileSync} from "node:fs";
import os from "node:os";
import {pathToFileURL} from "node:url";
import path from "node:path";

const [, , modules, chromium, ...pages] = process.argv;
if (pages.length === 0) {
  console.error("usage: check_reports.mjs MODULES CHROMIUM PAGE...");
  process.exit(2);
}
const require = createRequire(path.resolve(modules, "x.js"));
const puppeteer = require("puppeteer-core");
const {HtmlValidate} = require("html-validate");
const axe = readFileSync(require.resolve("axe-core/axe.min.js"), "utf8");

const PHONE = 360; // px
const MOST_PAGES = 12; // printed on A4: a block with a courtyard takes 11

async function findingsOf(browser, file) {
  const found = [];
  const url = pathToFileURL(path.resolve(file)).href;
  const page = await browser.newPage();
  const requests = [];
  page.on("request", (request) => requests.push(request.url()));
  // axe itself is a script: the page's own policy would keep it out.
  await page.setBypassCSP(true);
  for (const scheme of ["light", "dark"]) {
    await page.emulateMediaFeatures([{name: "prefers-color-scheme", value: scheme}]);
    await page.setViewport({width: 1200, height: 900});
    await page.goto(url);
    if (await page.evaluate(() => document.scripts.length)) found.push("has a script");
    await page.evaluate(axe);
    const result = await page.evaluate(() => window.axe.run());
    for (const violation of result.violations) {
      found.push(`axe (${scheme}): ${violation.id}: ${violation.help}: ` +
        violation.nodes.slice(0, 3).map((node) => node.target.join(" ")).join(", "));
    }
    for (const width of [PHONE, 1200]) {
      await page.setViewport({width, height: 800});
      const wide = await page.evaluate(() => document.documentElement.scrollWidth);
      if (wide > width) found.push(`is ${wide} px wide on ${width} px`);
    }
  }
  const other = [...new Set(requests.filter((request) => request !== url))];
  if (other.length > 0) found.push(`asks for ${other.join(", ")}`);

  const pdf = await page.pdf({format: "A4", printBackground: true, preferCSSPageSize: true});
  const text = Buffer.from(pdf).toString("latin1");
  const count = (text.match(/\/Type\s*\/Page\b/g) ?? []).length;
  if (count < 1 || count > MOST_PAGES) found.push(`prints on ${count} pages`);
  const boxes = new Set([...text.matchAll(/\/MediaBox\s*\[([^\]]*)\]/g)].map((m) => m[1].trim()));
  for (const box of boxes) {
    const [, , width, height] = box.split(/\s+/).map(Number);
    if (Math.abs(width - 595) > 2 || Math.abs(height - 842) > 2) found.push(`prints on ${box}`);
  }
  await page.close();

  const validator = new HtmlValidate({extends: ["html-validate:recommended"]});
  const report = await validator.validateFile(file);
  for (const result of report.results) {
    for (const message of result.messages) {
      found.push(`html:${message.line}: ${message.ruleId}: ${message.message}`);
    }
  }
  return {found, count};
}

const browser = await puppeteer.launch({
  executablePath: chromium,
  args: ["--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage"],
});
let bad = 0;
const left = pages.values();
async function checkWhatIsLeft() {
  for (const file of left) {
    const {found, count} = await findingsOf(browser, file);
    bad += found.length;
    for (const finding of found) console.log(`${file}: ${finding}`);
    if (found.length === 0) console.log(`${file}: nothing found, ${count} pages in print`);
  }
}
try {
  await Promise.all(Array.from({length: os.cpus().length}, checkWhatIsLeft));
} finally {
  await browser.close();
}
process.exit(bad > 0 ? 1 : 0);
