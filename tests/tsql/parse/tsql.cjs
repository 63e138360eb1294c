'use strict';
// Whether a text is one statement of Transact-SQL: the grammar of the package antlr4ts-sql, and a few rules of
// the server that the grammar leaves open.

const { CharStreams, CommonTokenStream } = require('antlr4ts');
const { PredictionMode } = require('antlr4ts/atn/PredictionMode');
const { TSqlLexer } = require('antlr4ts-sql/dist/src/grammar-output/tsql/TSqlLexer');
const { TSqlParser } = require('antlr4ts-sql/dist/src/grammar-output/tsql/TSqlParser');

/** The grammar knows its words in capitals only: the lexer looks ahead in capitals and keeps the text. */
class CapitalStream {
    constructor(text) {
        this.stream = CharStreams.fromString(text);
    }
    get index() { return this.stream.index; }
    get size() { return this.stream.size; }
    get sourceName() { return this.stream.sourceName; }
    consume() { this.stream.consume(); }
    LA(offset) {
        const code = this.stream.LA(offset);
        return code <= 0 ? code : String.fromCodePoint(code).toUpperCase().codePointAt(0);
    }
    mark() { return this.stream.mark(); }
    release(marker) { this.stream.release(marker); }
    seek(index) { this.stream.seek(index); }
    getText(interval) { return this.stream.getText(interval); }
}

function parse(text, mode) {
    const errors = [];
    const listener = {
        syntaxError: (recognizer, symbol, line, column, message) => errors.push(`${line}:${column} ${message}`),
    };
    const lexer = new TSqlLexer(new CapitalStream(text));
    lexer.removeErrorListeners();
    lexer.addErrorListener(listener);
    const parser = new TSqlParser(new CommonTokenStream(lexer));
    parser.removeErrorListeners();
    parser.addErrorListener(listener);
    parser.interpreter.setPredictionMode(mode);
    return { tree: parser.tsql_file(), errors };
}

/** The quick mode may refuse what the grammar takes, never the other way round. */
function parsed(text) {
    const quick = parse(text, PredictionMode.SLL);
    return quick.errors.length === 0 ? quick : parse(text, PredictionMode.LL);
}

function ruleOf(node) {
    return TSqlParser.ruleNames[node.ruleIndex];
}

function children(node) {
    return Array.from({ length: node.childCount }, (_, i) => node.getChild(i));
}

function* nodesOf(node) {
    yield node;
    for (const child of children(node))
        yield* nodesOf(child);
}

// The server's own functions that the grammar does not name, among those that programs of the house use.
const otherBuiltIns = ['isnull', 'databasepropertyex', 'db_id', 'db_name', 'schema_id', 'schema_name', 'serverproperty'];

// What the grammar takes and the server does not; each looks at one node of the tree.
const serverRules = [
    (node) => node.text === '||' && node.childCount === 0 && 'no operator ||',
    (node) => ruleOf(node) === 'derived_table' && !children(node.parent).some((n) => ruleOf(n) === 'as_table_alias') &&
        'a derived table needs a name',
    (node) => ruleOf(node) === 'full_column_name' && /^(true|false)$/i.test(node.text) && 'no truth values',
    (node) => ruleOf(node) === 'scalar_function_name' && !node.text.includes('.') &&
        !otherBuiltIns.includes(node.text.toLowerCase()) && `no built-in function ${node.text}`,
];

function brokenRule(tree) {
    for (const node of nodesOf(tree))
        for (const rule of serverRules) {
            const problem = rule(node);
            if (problem)
                return problem;
        }
    return null;
}

/** Why the text is no script of statements, or null. */
function problemOfScript(text) {
    const { tree, errors } = parsed(text);
    return errors[0] ?? brokenRule(tree);
}

/** Why the text is not exactly one statement that defines or works on data, or null. */
function problemOf(text) {
    const { tree, errors } = parsed(text);
    if (errors.length > 0)
        return errors[0];
    const clauses = [...nodesOf(tree)].filter((node) => ruleOf(node) === 'sql_clauses' && ruleOf(node.parent) === 'batch');
    if (clauses.length !== 1)
        return `${clauses.length} statements`;
    if (!['dml_clause', 'ddl_clause'].includes(ruleOf(clauses[0].getChild(0))))
        return 'neither a statement on data nor one that defines them';
    return brokenRule(tree);
}

module.exports = { problemOf, problemOfScript };
