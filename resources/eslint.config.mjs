// Checks the scripts of the Markdown page. CMake joins page/*.js into one script element, so each file
// sees the top-level names of all of them.

import { readFileSync, readdirSync } from "node:fs";
import js from "@eslint/js";
import globals from "globals";

const page = new URL("MarkdownReader/page/", import.meta.url);

const declaredNames = readdirSync(page)
    .filter((file) => file.endsWith(".js"))
    .flatMap((file) => [...readFileSync(new URL(file, page), "utf8").matchAll(/^(?:const|let) (\w+)/gm)])
    .map(([, name]) => name);

const libraries = ["DOMPurify", "hljs", "markdownit", "markdownitFootnote", "markdownitTaskLists"];

const readonly = (names) => Object.fromEntries(names.map((name) => [name, "readonly"]));
const writable = (names) => Object.fromEntries(names.map((name) => [name, "writable"]));

const rules = {
    ...js.configs.recommended.rules,
    "curly": ["error", "multi-or-nest", "consistent"],
    "eqeqeq": "error",
    "no-eval": "error",
    "no-implicit-globals": ["error", { lexicalBindings: false }],
    "no-redeclare": ["error", { builtinGlobals: false }],
    "no-shadow": "error",
    "no-unused-vars": ["error", { vars: "local" }],
    "no-var": "error",
    "object-shorthand": "error",
    "prefer-arrow-callback": "error",
    "prefer-const": "error",
    "prefer-template": "error",
};

export default [
    {
        files: ["**/MarkdownReader/page/*.js"],
        languageOptions: {
            ecmaVersion: 2022,
            sourceType: "script",
            globals: { ...globals.browser, ...readonly(libraries), ...writable(declaredNames) },
        },
        linterOptions: { reportUnusedDisableDirectives: "error" },
        rules,
    },
    {
        files: ["**/webengine/*.js"],
        languageOptions: {
            ecmaVersion: 2022,
            sourceType: "script",
            globals: { ...globals.browser, ...readonly(["QWebChannel", "qt"]) },
        },
        rules,
    },
];
