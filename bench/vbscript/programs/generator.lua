local Column = {}
Column.__index = Column
function Column:declaration() return "[" .. self.name .. "] " .. self.dataType end
local Table = {}
Table.__index = Table
function Table.new() return setmetatable({ columns = {}, n = 0 }, Table) end
function Table:add(c) self.columns[self.n] = c; self.n = self.n + 1 end
function Table:count() return self.n end
function Table:column(i) return self.columns[i] end
local Generator = {}
Generator.__index = Generator
function Generator:line(t) local p = self.parts; p[#p + 1] = t .. "\r\n" end
function Generator:trigger(t)
  self.parts = {}
  self:line("CREATE TRIGGER [tr_" .. t.name .. "] ON [" .. t.name .. "] FOR UPDATE AS")
  for i = 0, t:count() - 1 do
    local c = t:column(i)
    if c.dataType ~= "ntext" then
      self:line("  DECLARE @" .. string.lower(c.name) .. " " .. c.dataType)
      self:line("  IF UPDATE(" .. c:declaration() .. ")")
      self:line("    INSERT INTO audit SELECT '" .. string.gsub(c.name, "'", "''") .. "', d." .. c.name .. ", i." .. c.name)
    end
  end
  self:line("GO")
  return table.concat(self.parts)
end
local tables = {}
for i = 0, 199 do
  local t = Table.new()
  t.name = "Table" .. i
  for j = 0, 29 do
    local c = setmetatable({ name = "Column" .. j }, Column)
    if j % 3 == 0 then c.dataType = "int" else c.dataType = "varchar(50)" end
    t:add(c)
  end
  tables[i] = t
end
local g = setmetatable({}, Generator)
local total
for round = 1, 10 do
  total = 0
  for i = 0, 199 do total = total + #g:trigger(tables[i]) end
end
print(total)
