// What the constructor of regular expressions knows of the last match: RegExp.$1 to $9, lastMatch and the rest.
(function (global, native) {
    var hide = native.hide, exec = RegExp.prototype.exec, slice = Array.prototype.slice, last = null, pending = null;

    // The match is looked for again only when somebody asks.
    function remember(expression, text) { pending = { expression: expression, text: String(text) }; }
    function found() {
        if (pending === null)
            return last;
        var expression = pending.expression, copy = new RegExp(expression.source, (expression.ignoreCase ? 'i' : '') +
            (expression.multiline ? 'm' : '') + 'g'), match;
        var text = pending.text;
        pending = null;
        while ((match = exec.call(copy, text)) !== null) {
            last = match;
            if (!expression.global)
                break;
            if (match[0] === '')
                copy.lastIndex++;
        }
        return last;
    }
    hide(RegExp.prototype, 'exec', function (text) {
        var match = exec.call(this, text);
        if (match !== null) {
            last = match;
            pending = null;
            hide(match, 'lastIndex', match.index + match[0].length);
        }
        return match;
    });
    hide(RegExp.prototype, 'compile', function (pattern, flags) {
        if (pending !== null && pending.expression === this)
            found(); // by what it was
        native.become(this, pattern instanceof RegExp && flags === undefined ? pattern : new RegExp(pattern, flags));
        this.lastIndex = 0;
        return this;
    });
    hide(RegExp.prototype, 'test', function (text) { return this.exec(text) !== null; });
    // The function that gives the replacements sees the match that it is called for.
    function remembering(replacement) {
        return function () {
            var groups = arguments.length - 2, match = slice.call(arguments, 0, groups);
            match.index = arguments[groups];
            match.input = arguments[groups + 1];
            last = match;
            pending = null;
            return replacement.apply(this, arguments);
        };
    }
    ['match', 'replace', 'search'].forEach(function (name) {
        var original = String.prototype[name];
        hide(String.prototype, name, function (expression, replacement) {
            if (!(expression instanceof RegExp))
                return original.apply(this, arguments);
            var result = typeof replacement === 'function' ? original.call(this, expression, remembering(replacement))
                : original.apply(this, arguments);
            remember(expression, this);
            return result;
        });
    });

    function property(names, read) {
        names.forEach(function (name) {
            Object.defineProperty(RegExp, name, {
                configurable: true,
                get: function () { var match = found(); return match === null ? '' : read(match); },
                set: function () {}
            });
        });
    }
    function group(number) { return function (match) { return match[number] === undefined ? '' : match[number]; }; }
    for (var i = 1; i < 10; i++)
        property(['$' + i], group(i));
    property(['lastMatch', '$&'], group(0));
    property(['lastParen', '$+'], function (match) {
        return match.length > 1 && match[match.length - 1] !== undefined ? match[match.length - 1] : '';
    });
    property(['input', '$_'], function (match) { return match.input; });
    property(['leftContext', '$`'], function (match) { return match.input.slice(0, match.index); });
    property(['rightContext', "$'"], function (match) { return match.input.slice(match.index + match[0].length); });
    Object.defineProperty(RegExp, 'index', { get: function () { var m = found(); return m === null ? -1 : m.index; } });
    Object.defineProperty(RegExp, 'lastIndex', {
        get: function () { var m = found(); return m === null ? -1 : m.index + m[0].length; }
    });
})
