local function fib(n)
  if n < 2 then return n end
  return fib(n - 1) + fib(n - 2)
end
local function add(a, b) return a + b end
local s = 0
for i = 1, 1000000 do s = add(s, 1) end
print(s .. " " .. fib(27))
