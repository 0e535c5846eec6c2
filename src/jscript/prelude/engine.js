// What a script finds of its surroundings, and what it does not find.
(function (global, native) {
    var hide = native.hide;
    hide(global, 'ActiveXObject', function ActiveXObject(name) { return native.create(String(name)); });
    hide(global, 'GetObject', function GetObject() { native.fail(429, ''); });
    hide(global, 'ScriptEngine', function ScriptEngine() { return 'JScript'; });
    hide(global, 'ScriptEngineMajorVersion', function ScriptEngineMajorVersion() { return 5; });
    hide(global, 'ScriptEngineMinorVersion', function ScriptEngineMinorVersion() { return 8; });
    hide(global, 'ScriptEngineBuildVersion', function ScriptEngineBuildVersion() { return 0; });

    // Text that becomes code is rewritten like any other; the direct eval(x) is rewritten in its place.
    var NativeFunction = Function, evaluate = eval;
    function Code() {
        var names = Array.prototype.slice.call(arguments), body = names.length > 0 ? names.pop() : '';
        return evaluate($script('(function anonymous(' + names.join(',') + ') {' + body + '\n})'));
    }
    Code.prototype = NativeFunction.prototype;
    hide(NativeFunction.prototype, 'constructor', Code);
    hide(global, 'Function', Code);

    Duktape.errThrow = native.thrown;
    ['Duktape', 'Proxy', 'Reflect', 'Symbol', 'CBOR', 'TextEncoder', 'TextDecoder', 'performance', 'globalThis',
     'ArrayBuffer', 'DataView', 'Int8Array', 'Uint8Array', 'Uint8ClampedArray', 'Int16Array', 'Uint16Array',
     'Int32Array', 'Uint32Array', 'Float32Array', 'Float64Array'].forEach(
        function (name) { delete global[name]; });
})
