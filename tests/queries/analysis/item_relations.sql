-- every relation between items
select * from itemrelationship
