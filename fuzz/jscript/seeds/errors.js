var result = 0;
function Shape(name) { this.name = name; }
Shape.prototype.toString = function () { return 'Shape ' + this.name; };
function main() {
    var seen = [];
    for (var i = 0; i < 6; i++)
        try {
            switch (i) {
            case 0: null.x; break;
            case 1: nobody(); break;
            case 2: throw new Error(7, 'own');
            case 3: throw new Shape('round');
            case 4: decodeURI('%'); (1).toFixed(200);
            default: new Array(-1);
            }
        } catch (e) { seen.push(e.number & 0xFFFF, e.description, e instanceof Error, String(e)); }
        finally { result++; if (i == 3) continue; }
    return seen.join();
}
label: do { if (result > 2) break label; result += 1; } while (true);
